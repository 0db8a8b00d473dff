#pragma once

#include "androidtoast.h"
#include "keymainwindow.h"
#include "later.h"

#include <QtTest>
#include <QtWidgets>

#include <utility>

constexpr char readingPath[] = "media/flash/nvm/swc_keys";
constexpr char flagPath[] = "media/flash/nvm/swc_flags";
constexpr char configurationPath[] = "media/flash/nvm/direction.json";
constexpr char backupPath[] = "media/flash/nvm/direction.bak";

inline void write(const QString &path, const QByteArray &content,
                  QIODevice::OpenMode mode = QIODevice::WriteOnly)
{
    QFile file(path);
    if (!file.open(mode) || file.write(content) != content.size())
        qFatal("can't write a file of the test");
}

// Null where the file is missing.
inline QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The rows of a test whose input and outcome are texts, each a line "name: input => expected".
inline void addRows(const QString &table)
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    for (QString row : table.split('\n', QString::SkipEmptyParts)) {
        row.replace("\\r", "\r").replace("\\n", "\n").replace("\\t", "\t");
        const QString input = row.section(" =>", 0, 0).section(": ", 1);
        QTest::newRow(qPrintable(row.section(": ", 0, 0))) << input << row.section(" =>", 1).mid(1);
    }
}

static QString logText;
static QtMessageHandler handlerBefore;

// In a debug line, LINE stands for the number of the source line that wrote it.
inline void recordLog(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtDebugMsg || qstrcmp(context.category, "default") != 0)
        return handlerBefore(type, context, text);
    const QRegularExpression number(QString("(\\[\\w+ |\\[line:)%1\\]").arg(context.line));
    logText += QString(text).replace(number, "\\1LINE]") + '|';
}

// The debug lines since the last call, each ended by "|".
inline QString takeLog()
{
    return std::exchange(logText, QString(""));
}

// A folder that stands in for the root of the unit, with the driver's files in it.
class HeadUnit
{
public:
    explicit HeadUnit(const QByteArray &configuration = QByteArray())
    {
        QDir::setCurrent(folder.path());
        QDir().mkpath("media/flash/nvm/Corvane");
        write(readingPath, "");
        write(flagPath, "");
        if (!configuration.isNull())
            write(configurationPath, configuration);
        logText = "";
        handlerBefore = qInstallMessageHandler(recordLog);
    }
    ~HeadUnit()
    {
        qInstallMessageHandler(handlerBefore);
        QDir::setCurrent(folderBefore);
    }

private:
    QString folderBefore = QDir::currentPath();
    QTemporaryDir folder;
};

inline void tap(QWidget *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

// Answers the open question by the button with this text, by Escape where there is none.
inline void answer(const QString &text)
{
    QWidget *question = QApplication::activeModalWidget();
    if (!question)
        return QTest::qFail("no question is open", __FILE__, __LINE__);
    for (QPushButton *button : question->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return tap(button);
    }
    QTest::keyClick(question, Qt::Key_Escape);
}

// Closes the notices on the screen; gives the colour and text of each.
inline QStringList takeNotices()
{
    QStringList notices;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!qobject_cast<AndroidToast *>(widget))
            continue;
        const auto *label = widget->findChild<QLabel *>();
        const QString colour = label->styleSheet().section("; color:", 1).section(';', 0, 0);
        notices += colour + ' ' + label->text();
        delete widget;
    }
    AndroidToast::isShowToast = false;
    return notices;
}

// The slots of a class in the order in which the meta-object numbers them.
inline QStringList slotsOf(const QMetaObject &type)
{
    QStringList names;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names += (type.method(i).access() == QMetaMethod::Public ? "public " : "private ")
            + QString::fromLatin1(type.method(i).methodSignature());
    return names;
}

// A learning window on a head unit of its own, with a view of its learning state.
class KeyMainWindowProbe : public HeadUnit
{
public:
    using HeadUnit::HeadUnit;
    ~KeyMainWindowProbe() { takeNotices(); }

    QPushButton *button(int code) const { return window.mapButtonKeys.key(code); }

    // Hands over a reading in a file that nobody watches, so that it is read exactly once.
    void receive(const QByteArray &text)
    {
        write("measured", text);
        window.onFileChange("measured");
    }

    // Steps: "314" taps that key, "-314" is its time-out, "2,1,2,3" measures, "up" is the release,
    // "314=2,1,2,3" makes it a learned key, "clear" is answered by Yes, "ok" closes the notices.
    void play(const QString &steps)
    {
        for (const QString &step : steps.split(' ', QString::SkipEmptyParts)) {
            const QByteArray payload = step == "up" ? "2,4095,4095,4095" : step.toLatin1();
            const Later later(0, [] { answer("Yes"); });
            if (step == "ok")
                takeNotices();
            else if (step == "clear")
                tap(clear);
            else if (step.contains('='))
                learned.insert(step.section('=', 0, 0).toInt(), step.section('=', 1));
            else if (payload.contains(','))
                receive(QByteArray::number(payload.size()) + ':' + payload);
            else if (step.startsWith('-'))
                window.recorrectBtnStatus(-step.toInt());
            else
                tap(button(step.toInt()));
        }
    }

    // All that is not as at the start, for example "314 blue; waits 314; sample 0; next 1".
    QString state()
    {
        const QString style = "background-color:%1;border-radius:6px;border:none;outline:none";
        const QString gray = "QPushButton{" + style.arg("rgb(80,80,80)") + '}';
        const QHash<QString, QString> colours{ { style.arg("green"), "green" },
                                               { style.arg("blue"), "blue" } };
        QStringList parts;
        for (QPushButton *key : window.findChildren<QPushButton *>()) {
            const QString sheet = key->styleSheet();
            if (sheet != gray)
                parts += QString::number(window.mapButtonKeys.value(key)) + ' '
                    + colours.value(sheet, sheet);
        }
        for (int code : learned.keys())
            parts += QString("%1=%2").arg(code).arg(learned.value(code));
        for (int code : window.clickAndValidKeys)
            parts += QString("waits %1").arg(code);
        for (int index : samples.keys())
            parts += QString("sample %1").arg(index);
        if (window.sampleKeyIdx != 0)
            parts += QString("next %1").arg(window.sampleKeyIdx);
        return (parts + takeNotices()).join("; ");
    }

    KeyMainWindow window{ nullptr };
    QPushButton *save = window.btnSave;
    QPushButton *clear = window.btnClear;
    QMap<int, QString> &learned = window.mapSwcKeys;
    const QMap<int, QString> &samples = window.mapSampleKeys;
};
