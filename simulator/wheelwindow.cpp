#include "wheelwindow.h"

#include "driver.h"
#include "place.h"
#include "program.h"

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMap>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPair>
#include <QPen>
#include <QPixmap>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QScreen>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <QTimerEvent>
#include <QVector>
#include <QWidget>

#include <utility>

namespace {

// In a square of wheelSide, as img/svg/wheel.svg is drawn.
const QRect display(124, 72, 232, 88);

const QColor gray(0x50, 0x58, 0x66);
const QColor dark(0x15, 0x18, 0x1e);
const QColor green(0x35, 0xd0, 0x7f);
const QColor blue(0x3d, 0x9b, 0xff);
const QColor yellow(0xff, 0xb0, 0x3a);

const QMap<QString, QPair<QString, QColor>> flagTexts = {
    { "1", { "LEARNING", blue } },
    { "0", { "LEARNING OFF", green } },
    { "11", { "KEYS CLEARED", yellow } },
};

// The words of a box stay whole; they shrink to fit.
void drawBox(QPainter *painter, const QRect &box, const QColor &face, const QColor &colour,
             int pixels, const QString &text)
{
    constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const QRect room = box.adjusted(3, 3, -3, -3);
    QFont font;
    font.setBold(true);
    do {
        font.setPixelSize(pixels);
        painter->setFont(font);
    } while (!room.contains(painter->boundingRect(room, flags, text)) && --pixels > 1);
    painter->setPen(QPen(gray, 2));
    painter->setBrush(face);
    painter->drawRoundedRect(box, 6, 6);
    painter->setPen(colour);
    painter->drawText(room, flags, text);
}

class WheelWindow : public QWidget
{
public:
    // The keys of line 2 are on the left, column by column from the hub to the rim.
    WheelWindow(Driver *driver, const QSize &headUnit, QStringList command)
        : driver(driver), headUnit(headUnit), command(std::move(command))
    {
        int placed[] = { 0, 0, 0, 0 };
        for (const WheelKey &key : driver->wheel.keys) {
            const int place = placed[key.contact[0]]++;
            const int column = place / 4 * 43;
            const int x = key.contact[0] == 2 ? 135 - column : 306 + column;
            pads.append(QRect(x, 178 + place % 4 * 34, 39, 30));
        }
        setWindowTitle("Steering wheel");
        setFixedSize(wheelSide, wheelSide);
        program.setWorkingDirectory(driver->root);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.setStandardOutputFile(driver->root + "/log.txt");
        start();
        startTimer(driver->period);
    }

    ~WheelWindow() override
    {
        program.terminate();
        program.waitForFinished();
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        driver->writeNext();
        placeOnce();
        update();
        if (command.isEmpty() || !outcome.isEmpty() || program.state() != QProcess::NotRunning)
            return;
        outcome = outcomeOf(program, *driver);
        activateWindow(); // for the key that starts it again
        QTextStream(hasFailed(program) ? stderr : stdout) << outcome << endl;
        if (hasFailed(program))
            QApplication::exit(1);
    }

    void mousePressEvent(QMouseEvent *event) override
    {
        const QPoint position = event->pos() * wheelSide / width();
        if (display.contains(position))
            start();
        for (int i = 0; i < pads.size(); ++i) {
            if (pads.at(i).contains(position))
                driver->hold(driver->wheel.keys.at(i));
        }
    }

    void mouseReleaseEvent(QMouseEvent *) override { driver->release(); }

    void keyPressEvent(QKeyEvent *) override { start(); }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.scale(qreal(width()) / wheelSide, qreal(width()) / wheelSide);
        painter.drawPixmap(0, 0, QPixmap(":/wheel.png"));
        const Decoded decoded = driver->decodeHeld();
        const auto flag = flagTexts.value(driver->flag(), { "NO FLAG", yellow });
        const bool isWrong = !decoded.text.isEmpty() && decoded.code != driver->held->code;
        QStringList lines = { flag.first, driver->reading, driver->fault, decoded.text };
        if (!outcome.isEmpty())
            lines[0] = outcome + "\nClick or Space starts again";
        lines.removeAll(QString());
        drawBox(&painter, display, dark.darker(), isWrong ? yellow : flag.second, 15,
                lines.join('\n'));
        for (int i = 0; i < pads.size(); ++i) {
            const WheelKey &key = driver->wheel.keys.at(i);
            const bool isLit = key.code == decoded.code;
            const QColor face = isLit ? green : &key == driver->held ? blue : gray.darker();
            drawBox(&painter, pads.at(i), face, Qt::white, 10, key.label);
        }
    }

private:
    // Does nothing without a command, or while it runs.
    void start()
    {
        if (command.isEmpty() || program.state() != QProcess::NotRunning)
            return;
        outcome.clear();
        program.start(command.first(), command.mid(1));
    }

    // The window's manager gives it its frame some time after it is shown.
    void placeOnce()
    {
        const QSize size = frameGeometry().size() - geometry().size();
        if (headUnit.isEmpty() || size == frame)
            return;
        frame = size;
        const QRect place =
            placeBeside(headUnit, QGuiApplication::primaryScreen()->availableGeometry(), frame);
        setFixedSize(place.size() - frame);
        move(place.topLeft());
    }

    Driver *driver;
    const QSize headUnit;
    const QStringList command; // of the program, may be empty
    QProcess program;
    QSize frame;
    QString outcome; // of the program, empty until it has ended
    QVector<QRect> pads; // one for each key
};

} // namespace

int showWheel(Driver *driver, const QSize &headUnit, const QStringList &command)
{
    WheelWindow window(driver, headUnit, command);
    window.show();
    return QApplication::exec();
}
