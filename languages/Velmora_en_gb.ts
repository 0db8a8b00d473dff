<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB">
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
        <translation>1. Tap a button below. It turns from gray to blue.
2. Press and release its key on the wheel. The button turns green.
3. Repeat steps 1 and 2 for every key that you need.
4. Tap the button with the green tick to save and exit.</translation>
    </message>
    <message>
        <source>SUCCESS.</source>
        <translation>SUCCESS.</translation>
    </message>
    <message>
        <source>FAILED.</source>
        <translation>FAILED.</translation>
    </message>
    <message>
        <source>REPEAT.</source>
        <translation>REPEAT.</translation>
    </message>
    <message>
        <source>NO LEARNING.</source>
        <translation>NO LEARNING.</translation>
    </message>
    <message>
        <source>LEARNED.</source>
        <translation>LEARNED.</translation>
    </message>
</context>
</TS>
