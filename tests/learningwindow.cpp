#include "learningwindow.h"

#include <QApplication>
#include <QHash>
#include <QTimer>

LearningWindow::LearningWindow(const QByteArray &configuration)
    : HeadUnit(configuration), KeyMainWindow(nullptr)
{
}

void LearningWindow::tap(int code)
{
    button(code)->click();
    handleEvents();
}

int LearningWindow::save()
{
    QTimer inTheEventLoop;
    connect(&inTheEventLoop, SIGNAL(timeout()), btnSave, SLOT(click()));
    inTheEventLoop.start(0);
    return QCoreApplication::exec();
}

QString LearningWindow::clear()
{
    QString text;
    QTimer inTheQuestion;
    connect(&inTheQuestion, &QTimer::timeout, [&text] {
        text = QApplication::activeModalWidget()->findChild<QLabel *>()->text();
        QApplication::activeModalWidget()->findChild<QPushButton *>()->click();
    });
    inTheQuestion.start(0);
    btnClear->click();
    return text;
}

void LearningWindow::measure(int keyLine, int adc1, int adc2, int adc3)
{
    writeText(QString("99:%1,%2,%3,%4").arg(keyLine).arg(adc1).arg(adc2).arg(adc3).toLatin1());
}

void LearningWindow::release()
{
    measure(2, 4095, 4095, 4095);
}

void LearningWindow::writeText(const QByteArray &text)
{
    write(readingPath, text);
    handleEvents();
}

void LearningWindow::learn(int code, const QString &record)
{
    mapSwcKeys.insert(code, record);
}

QString LearningWindow::colourOf(int code) const
{
    const QString rest = ";border-radius:6px;border:none;outline:none";
    const QHash<QString, QString> names = {
        { "QPushButton{background-color:rgb(80,80,80)" + rest + "}", Gray },
        { "background-color:blue" + rest, Blue },
        { "background-color:green" + rest, Green },
        { "QPushButton{background-color:green" + rest + "}", GreenAtStart },
    };
    const QString style = button(code)->styleSheet();
    return names.value(style, style);
}

QString LearningWindow::notice() const
{
    QStringList notices;
    for (const QLabel *label : shownNotices()) {
        const QString colour = label->styleSheet().section("; color:", 1).section(';', 0, 0);
        notices += colour + ' ' + label->text();
    }
    return notices.join(" above ");
}
