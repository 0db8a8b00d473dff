#include "wheelwindow.h"

#include "driver.h"

#include <QPixmap>
#include <QPushButton>
#include <QRect>
#include <QTimerEvent>

#include <utility>

namespace {

constexpr char windowStyle[] =
    "QPushButton{background:#282c33;color:white;border:2px solid #505866;border-radius:6px;"
    "font:bold 9px}"
    "QPushButton:pressed{background:#3d9bff}";
constexpr char decodedStyle[] = "background:#209c5a";

// The first half of the keys is on the left. Three columns go from the hub outwards, with four keys
// each or as many as it takes.
QRect keyGeometry(int index, int count)
{
    const int half = (count + 1) / 2;
    const int rows = qMax(4, (half + 2) / 3);
    const int place = index % half;
    const int column = place / rows * 43;
    const int height = 136 / rows;
    const int x = index < half ? 135 - column : 306 + column;
    return { x, 178 + place % rows * height, 39, height - 4 };
}

QString flagText(const QString &flag)
{
    if (flag == "1")
        return "LEARNING";
    if (flag == "11")
        return "KEYS CLEARED";
    return flag == "0" ? "LEARNING OFF" : "NO FLAG";
}

} // namespace

WheelWindow::WheelWindow(Driver *driver, QStringList command)
    : driver(driver), command(std::move(command)), display(new QPushButton(this))
{
    setWindowTitle("Steering wheel");
    setPixmap(QPixmap(":/wheel.png"));
    setFixedSize(480, 480);
    setStyleSheet(windowStyle);
    display->setGeometry(124, 72, 232, 88);
    display->setStyleSheet("background:#0b0c0f;font:bold 12px");
    display->setFocus();
    connect(display, SIGNAL(clicked()), SLOT(startProgram()));
    const QVector<WheelKey> &keys = driver->wheel.keys;
    for (int i = 0; i < keys.size(); ++i) {
        auto *button = new QPushButton(keys.at(i).label, this);
        button->setGeometry(keyGeometry(i, keys.size()));
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, SIGNAL(pressed()), SLOT(pressKey()));
        connect(button, SIGNAL(released()), SLOT(releaseKey()));
        buttons.append(button);
    }
    program.setWorkingDirectory(driver->root);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.setStandardOutputFile(driver->root + "/log.txt");
    connect(&program, SIGNAL(finished(int)), SLOT(takeFocus()));
    startProgram();
    startTimer(Driver::period);
}

WheelWindow::~WheelWindow()
{
    program.terminate();
    program.waitForFinished();
}

void WheelWindow::timerEvent(QTimerEvent *)
{
    driver->measure();
    const int code = driver->decodedCode();
    QStringList lines = { endOfProgram(), driver->reading() };
    if (lines.first().isEmpty())
        lines.first() = flagText(driver->flag());
    if (code >= 0)
        lines += "Decoded as " + driver->wheel.functionName(code);
    if (driver->hasFailed())
        lines += "Can't write swc_keys";
    display->setText(lines.join('\n'));
    for (int i = 0; i < buttons.size(); ++i) {
        const QString style = driver->wheel.keys.at(i).code == code ? decodedStyle : "";
        if (buttons.at(i)->styleSheet() != style)
            buttons.at(i)->setStyleSheet(style);
    }
}

void WheelWindow::startProgram()
{
    if (!command.isEmpty() && program.state() == QProcess::NotRunning)
        program.start(command.first(), command.mid(1));
}

void WheelWindow::takeFocus()
{
    activateWindow();
}

void WheelWindow::pressKey()
{
    for (int i = 0; i < buttons.size(); ++i) {
        if (buttons.at(i)->isDown())
            driver->press(driver->wheel.keys.at(i));
    }
}

void WheelWindow::releaseKey()
{
    driver->release();
}

QString WheelWindow::endOfProgram() const
{
    if (command.isEmpty() || program.state() != QProcess::NotRunning)
        return QString();
    QString text = "The program has ended";
    if (program.error() == QProcess::FailedToStart)
        text = "The program can't be started";
    else if (program.exitStatus() == QProcess::CrashExit)
        text = "The program was killed";
    else if (program.exitCode() != 0)
        text += QString("\nwith exit code %1").arg(program.exitCode());
    return text + "\nClick here or press Space to start it";
}
