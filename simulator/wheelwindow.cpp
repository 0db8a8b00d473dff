#include "wheelwindow.h"

#include "driver.h"
#include "place.h"
#include "program.h"

#include <QApplication>
#include <QByteArray>
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
#include <QPoint>
#include <QPolygon>
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

constexpr int padWidth = 43;
constexpr int padHeight = 34;
constexpr int padRows = 4;
const QPoint centre(240, 240);
const QRect display(124, 72, 232, 88);

const QColor white(0xe8, 0xec, 0xf2);
const QColor gray(0x50, 0x58, 0x66);
const QColor dark(0x15, 0x18, 0x1e);
const QColor green(0x35, 0xd0, 0x7f);
const QColor blue(0x3d, 0x9b, 0xff);
const QColor yellow(0xff, 0xb0, 0x3a);
const QColor red(0xff, 0x6b, 0x5e);

const QMap<QByteArray, QPair<QString, QColor>> flagTexts = {
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

// Two broad spokes that carry the pads and one that goes down, in a rim.
void drawWheel(QPainter *painter)
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(gray.darker(130));
    painter->drawRoundedRect(28, 166, 424, 154, 24, 24);
    painter->drawEllipse(centre, 96, 88);
    painter->drawPolygon(QPolygon({ { 196, 300 }, { 284, 300 }, { 268, 450 }, { 212, 450 } }));
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(gray.darker(140), 24));
    painter->drawEllipse(centre, 218, 218);
}

class WheelWindow : public QWidget
{
public:
    // The keys of line 2 are on the left, column by column from the hub to the rim.
    WheelWindow(Driver *driver, const QSize &headUnit, QStringList command)
        : driver(driver), headUnit(headUnit), command(std::move(command))
    {
        int placed[] = { 0, 0 };
        for (const WheelKey &key : driver->wheel.keys) {
            const bool left = key.contact[0] == 2;
            const int place = placed[left]++;
            const int distance = 64 + place / padRows * padWidth; // from the centre
            pads.append(QRect(centre.x() + (left ? -distance - padWidth : distance) + 2,
                              178 + place % padRows * padHeight, padWidth - 4, padHeight - 4));
        }
        setWindowTitle("Steering wheel");
        setFixedSize(wheelSide, wheelSide);
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
        if (!command.isEmpty() && outcome.isEmpty() && program.state() == QProcess::NotRunning) {
            outcome = outcomeOf(program, *driver);
            activateWindow(); // for the Space that starts it again
            QTextStream(hasFailed(program) ? stderr : stdout) << outcome << endl;
            if (hasFailed(program))
                QApplication::exit(1);
        }
        placeOnce();
        update();
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

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Space)
            start();
    }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), dark);
        painter.scale(qreal(width()) / wheelSide, qreal(width()) / wheelSide);
        drawWheel(&painter);
        drawDriver(&painter);
        for (int i = 0; i < pads.size(); ++i) {
            const WheelKey &key = driver->wheel.keys.at(i);
            const bool held = &key == driver->held();
            const bool lit = key.name == driver->function();
            drawBox(&painter, pads.at(i),
                    lit        ? green
                        : held ? blue
                               : gray.darker(),
                    held ? dark : white, 10, key.label);
        }
    }

private:
    void start()
    {
        outcome.clear();
        startProgram(command, driver->root, &program);
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

    // The driver's files and how the program has ended, on the instrument cluster.
    void drawDriver(QPainter *painter) const
    {
        const auto flag = flagTexts.value(driver->flag(), { "NO FLAG", red });
        QStringList lines(outcome.isEmpty() ? flag.first : outcome);
        lines << driver->reading() << driver->fault();
        if (!driver->function().isEmpty())
            lines << decodedText(*driver->held(), driver->function(), driver->configuration());
        else if (!outcome.isEmpty())
            lines << "Click here or press Space to start again";
        lines.removeAll(QString());
        const bool asAnother = driver->held() && !driver->function().isEmpty()
            && driver->function() != driver->held()->name;
        drawBox(painter, display, dark.darker(), asAnother ? yellow : flag.second, 15,
                lines.join('\n'));
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
