#include "CustomMsgBox.h"
#include "androidtoast.h"
#include "headunit.h"

#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QLayout>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <QPalette>
#include <QPixmap>
#include <QPointer>
#include <QTranslator>

namespace {

QString inWords(const QMetaProperty &property, const QWidget &widget)
{
    const QVariant value = widget.property(property.name());
    const QRect rect = value.toRect();
    const QSize size = rect.isNull() ? value.toSize() : rect.size();
    QString words = property.isEnumType() ? QString::number(value.toInt()) : value.toString();
    if (value.type() == QVariant::Rect)
        words = QString("%1,%2 ").arg(rect.x()).arg(rect.y());
    if (value.type() == QVariant::Rect || value.type() == QVariant::Size)
        words += QString("%1x%2").arg(size.width()).arg(size.height());
    return words;
}

// What sets a widget apart from another one. Fonts stand in style sheets.
QString lookOf(const QWidget &widget, const QWidget &other)
{
    QString look = widget.metaObject()->className();
    for (int i = 0; i < widget.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = widget.metaObject()->property(i);
        const QString words = inWords(property, widget);
        if (property.isWritable() && property.isDesignable(&widget)
            && property.type() != QVariant::Font && words != inWords(property, other))
            look += QString("; %1 %2").arg(property.name(), words);
    }
    return look.replace('\n', "\\n");
}

// In the order in which the meta-object numbers them.
QStringList slotsOf(const QMetaObject &type)
{
    QStringList names;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names += (type.method(i).access() == QMetaMethod::Public ? "public " : "private ")
            + QString::fromLatin1(type.method(i).methodSignature());
    return names;
}

// A window, its slots and its widgets. A widget is set apart from the last before it of its class.
QStringList looksOf(const QWidget &window)
{
    QWidget plain;
    QLabel label(&plain);
    QPushButton button(&plain);
    QHash<QString, const QWidget *> last{ { "QLabel", &label }, { "QPushButton", &button } };
    QStringList looks = slotsOf(*window.metaObject());
    looks += lookOf(window, plain) + QString("; flags %1").arg(uint(window.windowFlags()), 0, 16);
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const QString type = widget->metaObject()->className();
        looks += lookOf(*widget, *last.value(type, &plain));
        last.insert(type, widget);
    }
    return looks;
}

// tables/NAME.txt has what is expected.
void compare(const QStringList &looks, const QString &table)
{
    const QString path = QFINDTESTDATA("tables/" + table + ".txt");
    const QStringList expected = QString(read(path)).split('\n', QString::SkipEmptyParts);
    for (int i = 0; i < qMax(looks.size(), expected.size()); ++i)
        QVERIFY2(looks.value(i) == expected.value(i),
                 qPrintable(looks.value(i) + "\nnot\n" + expected.value(i)));
}

bool fits(QLabel *label, const QSize &place)
{
    label->ensurePolished(); // the style sheet has the size of the font
    const QRect lines = label->fontMetrics().boundingRect(QRect(0, 0, place.width(), 1000),
                                                          Qt::TextWordWrap, label->text());
    return lines.width() <= place.width() && lines.height() <= place.height();
}

} // namespace

// What a person sees. tables/window.txt, notice.txt and question.txt have it in words, for a screen
// of 800 x 600; pictures show the head unit's own screens.
class TestScreens : public QObject
{
    Q_OBJECT

private slots:
    void window()
    {
        const RunningUnit unit;
        const QString keys = read(":/img/btListInfo.txt")
            + "save        0      :/img/save.png\r\nclear       0      :/img/clear.png";
        QStringList looks = keys.split("\r\n").mid(2);
        const auto buttons = unit.window.findChildren<QPushButton *>();
        for (int i = 0; i < buttons.size(); ++i) {
            const QStringList key = looks.value(i).simplified().split(' ');
            QCOMPARE(unit.keys.value(buttons.at(i)), key.value(1).toInt());
            const QPixmap image(key.value(2));
            QVERIFY2(!image.isNull(), qPrintable(key.value(2)));
            QCOMPARE(buttons.at(i)->icon().pixmap(999).toImage(), image.toImage());
        }
        for (const auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            looks += unit.window.palette().color(group, QPalette::Window).name();
        for (const QLabel *label : unit.window.findChildren<QLabel *>())
            looks += label->palette().color(QPalette::WindowText).name();

        // Neither fonts nor styles decide about places, and there is room to share.
        unit.window.findChild<QLabel *>()->setMinimumWidth(300);
        for (QLayout *layout : unit.window.findChildren<QLayout *>()) {
            layout->setContentsMargins(0, 0, 0, 0);
            layout->setSpacing(0);
        }
        unit.window.layout()->setGeometry(QRect(0, 0, 2000, 1500));
        compare(looks + looksOf(unit.window), "window");
    }

    void noticeInTheColourOfItsLevel()
    {
        const HeadUnit unit;
        QStringList looks;
        for (int level = -1; level < 4; ++level) {
            AndroidToast::showTip(level, "NO LEARNING.", nullptr);
            looks += looksOf(*notices().first()->window());
            const QImage image = notices().first()->window()->grab().toImage();
            QCOMPARE(image.pixel(0, 0), 0U); // behind a rounded corner
            QCOMPARE(image.pixel(5, 5), 0xffffffffU);
            pass(3000);
        }
        compare(looks, "notice");
    }

    void noticeFadesInStaysAndFadesOut()
    {
        const HeadUnit unit;
        AndroidToast::showTip(0, "SUCCESS.", nullptr);
        const QPointer<QWidget> toast = notices().first()->window();
        handleEvents();
        const int opacities[] = { 0, 25, 50, 75, 100, 100, 100, 100, 100, 75, 50, 25 }; // percent
        for (const int opacity : opacities) {
            QCOMPARE(qRound(toast->windowOpacity() * 100), opacity);
            pass(250);
            QCOMPARE(AndroidToast::isShowToast, !toast.isNull());
        }
        QVERIFY(toast.isNull());
    }

    void question()
    {
        QWidget owner;
        const HeadUnit unit;
        const CustomMsgBox question(&owner, "A text that is far too wide for the label");
        QVERIFY(!question.parent());
        compare(looksOf(question) << takeLog(), "question");
    }

    void textsAreTranslatedAndFit()
    {
        QApplication::setFont(QFont("Droid Sans Fallback", 16));
        const QString instructions = RunningUnit().window.findChildren<QLabel *>().at(2)->text();
        for (const char *catalogue : { "Velmora_en_gb.qm", "Velmora_zh_rCN.qm" }) {
            QTranslator translator;
            QVERIFY(translator.load(catalogue, CATALOGUES_FOLDER));
            QCoreApplication::installTranslator(&translator);
            const auto translated = [&translator](const QString &text) {
                return translator.translate("KeyMainWindow", qPrintable(text));
            };
            RunningUnit unit;
            QLabel *label = unit.window.findChildren<QLabel *>().at(2);
            QCOMPARE(label->text(), translated(instructions));
            QVERIFY(fits(label, { 752, 125 }) && fits(label, { 962, 157 }));
            unit.play("154=3,7,8,9");
            for (const QString step : { "LEARNED.:154", "FAILED.:314 up", "REPEAT.:314 3,7,8,9",
                                        "SUCCESS.:314 2,7,8,9 up", "NO LEARNING.:250 4000ms" }) {
                unit.play(step.section(':', 1));
                QLabel *notice = notices().first();
                QVERIFY2(!notice->text().isEmpty() && fits(notice, { 160, 80 }), qPrintable(step));
                QCOMPARE(notice->text(), translated(step.section(':', 0, 0)));
                pass(3000);
            }
        }
    }
};

QTEST_MAIN(TestScreens)
#include "tst_screens.moc"
