<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>KeyMainWindow</name>
    <message>
        <source>Velmora</source>
        <translation>Velmora</translation>
    </message>
    <message>
        <source>The operation steps are as follows:
1. Click the below button(the button changes from gray to blue);
2. Next, click the key on SWC(the button clicked in the first step changes from blue to green);
3. Repeat steps 1 and 2 to learn all the keys you need on SWC;
4. Finally, click the green tick key to save and exit.</source>
        <translatorcomment>Four lines: five do not fit their place on 800 x 480, nor does a literal translation.</translatorcomment>
        <translation>1. 点击下方要学习的按键图标，图标由灰色变为蓝色；
2. 按下方向盘上对应的按键后松开，图标由蓝色变为绿色；
3. 重复步骤 1 和 2，学习其他需要的按键；
4. 最后点击绿色对勾图标，保存并退出。</translation>
    </message>
    <message>
        <source>SUCCESS.</source>
        <translation>学习成功</translation>
    </message>
    <message>
        <source>FAILED.</source>
        <translation>学习失败</translation>
    </message>
    <message>
        <source>REPEAT.</source>
        <translation>按键重复</translation>
    </message>
    <message>
        <source>NO LEARNING.</source>
        <translation>学习超时</translation>
    </message>
    <message>
        <source>LEARNED.</source>
        <translation>已学习</translation>
    </message>
</context>
</TS>
