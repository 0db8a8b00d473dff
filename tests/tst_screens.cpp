#include "CustomMsgBox.h"
#include "androidtoast.h"
#include "headunit.h"

#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QLayout>
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
    const QString words = QString("%1x%2").arg(size.width()).arg(size.height());
    if (value.type() == QVariant::Rect)
        return QString("%1,%2 ").arg(rect.x()).arg(rect.y()) + words;
    if (value.type() == QVariant::Size)
        return words;
    return property.isEnumType() ? QString::number(value.toInt()) : value.toString();
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

// A window, its slots and its widgets. A widget is set apart from the last before it of its class.
QStringList looksOf(const QWidget &window)
{
    QWidget plain;
    QLabel label(&plain);
    QPushButton button(&plain);
    QHash<QString, const QWidget *> last{ { "QLabel", &label }, { "QPushButton", &button } };
    QStringList looks = slotsOf(*window.metaObject());
    looks += lookOf(window, plain)
        + QString("; flags %1; translucent %2")
              .arg(static_cast<uint>(window.windowFlags()), 0, 16)
              .arg(window.testAttribute(Qt::WA_TranslucentBackground));
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
    const QString text = read(QFINDTESTDATA("tables/" + table + ".txt"));
    const QStringList expected = text.split('\n', QString::SkipEmptyParts);
    for (int i = 0; i < qMax(looks.size(), expected.size()); ++i)
        QCOMPARE(looks.value(i), expected.value(i));
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
        const auto buttons = unit.window.findChildren<QPushButton *>();
        const QString catalogue = read(":/img/btListInfo.txt");
        QStringList keys = catalogue.split("\r\n", QString::SkipEmptyParts).mid(2);
        keys += { "save        0      :/img/save.png", "clear       0      :/img/clear.png" };
        for (int i = 0; i < keys.size(); ++i) {
            const QStringList key = keys.at(i).simplified().split(' ');
            QCOMPARE(unit.keys.value(buttons.at(i)), key.at(1).toInt());
            QCOMPARE(buttons.at(i)->icon().pixmap(999).toImage(), QPixmap(key.at(2)).toImage());
        }
        for (const auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            keys += unit.window.palette().color(group, QPalette::Window).name();

        // Neither fonts nor styles decide about places, and there is room to share.
        unit.window.findChild<QLabel *>()->setMinimumWidth(300);
        for (QLayout *layout : unit.window.findChildren<QLayout *>()) {
            layout->setContentsMargins(0, 0, 0, 0);
            layout->setSpacing(0);
        }
        unit.window.layout()->setGeometry(QRect(0, 0, 2000, 1500));
        compare(keys + looksOf(unit.window), "window");
    }

    void noticeInTheColourOfItsLevel()
    {
        const HeadUnit unit;
        QStringList looks;
        for (int level = -1; level < 4; ++level) {
            AndroidToast::showTip(level, "NO LEARNING.", nullptr);
            QWidget *toast = notices().first()->window();
            looks += looksOf(*toast);
            const QImage image = toast->grab().toImage();
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
            RunningUnit unit;
            const auto translated = [&translator](const QString &text) {
                return translator.translate("KeyMainWindow", qPrintable(text));
            };
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
