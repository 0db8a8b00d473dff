#include "headunit.h"

#include <QIcon>
#include <QPixmap>

class TestKeys : public QObject
{
    Q_OBJECT

private slots:
    void everyKeyHasItsImageAndItsTimeOut_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("image");
        QTest::newRow("Home") << 0 << 314 << "home";
        QTest::newRow("Back") << 1 << 250 << "back";
        QTest::newRow("Power") << 2 << 148 << "pow";
        QTest::newRow("Mute") << 3 << 149 << "mute";
        QTest::newRow("VolPlus") << 4 << 166 << "vol+";
        QTest::newRow("VolSubtract") << 5 << 167 << "vol-";
        QTest::newRow("Prev") << 6 << 232 << "last";
        QTest::newRow("Next") << 7 << 233 << "next";
        QTest::newRow("Src") << 8 << 315 << "src";
        QTest::newRow("Enter") << 9 << 157 << "enter";
        QTest::newRow("Bluetooth") << 10 << 347 << "bt";
        QTest::newRow("HangUp") << 11 << 351 << "hangup";
        QTest::newRow("Ilink") << 12 << 325 << "ilink";
        QTest::newRow("Siri") << 13 << 344 << "siri";
        QTest::newRow("Music") << 14 << 302 << "music";
        QTest::newRow("Radio") << 15 << 226 << "radio";
        QTest::newRow("Left") << 16 << 155 << "left";
        QTest::newRow("Right") << 17 << 156 << "right";
        QTest::newRow("Up") << 18 << 153 << "up";
        QTest::newRow("Down") << 19 << 154 << "down";
        QTest::newRow("Ams") << 20 << 326 << "ams";
        QTest::newRow("PlayPause") << 21 << 247 << "playpause";
    }
    void everyKeyHasItsImageAndItsTimeOut()
    {
        QFETCH(int, position);
        QFETCH(int, code);
        QFETCH(QString, image);
        LearningWindow window;
        QPushButton *button = window.findChildren<QPushButton *>().value(position);
        QCOMPARE(window.button(code), button);
        const QPixmap pixmap(":/img/" + image + ".png");
        QVERIFY(!pixmap.isNull());
        QCOMPARE(button->icon().pixmap(999).toImage(), pixmap.toImage());

        window.tap(code);
        pass(4000);
        QCOMPARE(window.waiting(), QList<int>());
        window.tap(code);
        const QByteArray slot = QByteArray("recorrect") + QTest::currentDataTag() + "BtnStatus";
        QVERIFY2(QMetaObject::invokeMethod(&window, slot), slot);
        QCOMPARE(window.waiting(), QList<int>());
        const QMetaObject *type = window.metaObject();
        QCOMPARE(type->indexOfSlot(slot + "()") - type->methodOffset(), 2 + position);
    }
};

QTEST_MAIN(TestKeys)
#include "tst_keys.moc"
