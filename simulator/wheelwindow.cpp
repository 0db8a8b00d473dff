#include "wheelwindow.h"

#include "driver.h"
#include "place.h"
#include "program.h"

#include <QApplication>
#include <QBrush>
#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMap>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPair>
#include <QPoint>
#include <QPointF>
#include <QPolygon>
#include <QRadialGradient>
#include <QRect>
#include <QRectF>
#include <QScreen>
#include <QSizeF>
#include <QString>
#include <QTextStream>
#include <QTimerEvent>
#include <QVector>
#include <QWidget>

namespace {

constexpr int padWidth = 43;
constexpr int padHeight = 34;
constexpr int padRows = 4;
const QPoint centre(240, 240);
const QRect hub(182, 186, 116, 116);
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

QBrush shade(const QRect &rect, const QColor &top, const QColor &bottom)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

// Words stay whole; the text shrinks to fit.
void write(QPainter *painter, const QRect &rect, const QColor &colour, int pixels,
           const QString &text)
{
    constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(true);
    painter->save();
    painter->setFont(font);
    painter->setPen(colour);
    const QSizeF needed = painter->boundingRect(QRectF(rect), flags, text).size();
    const qreal scale =
        qMin(rect.width() / needed.width(), qMin(1.0, rect.height() / needed.height()));
    painter->translate(QRectF(rect).center());
    painter->scale(scale, scale);
    QRectF place(QPointF(), needed.expandedTo(rect.size()));
    place.moveCenter(QPointF());
    painter->drawText(place, flags, text);
    painter->restore();
}

void drawBox(QPainter *painter, const QRect &rect, int radius, const QColor &edge,
             const QColor &face)
{
    painter->setPen(QPen(edge, 2));
    painter->setBrush(shade(rect, face.lighter(140), face));
    painter->drawRoundedRect(rect, radius, radius);
}

// Two broad spokes that carry the pads and one that goes down, in a rim of leather.
void paintWheel(QPainter *painter)
{
    QPainterPath spokes;
    spokes.setFillRule(Qt::WindingFill);
    spokes.addRoundedRect(QRect(28, 166, 424, 154), 24, 24);
    spokes.addEllipse(centre, 96, 88);
    spokes.addPolygon(QPolygon({ { 196, 300 }, { 284, 300 }, { 268, 450 }, { 212, 450 } }));
    painter->fillPath(spokes, shade(QRect(0, 150, 480, 200), gray, dark));

    QRadialGradient leather(centre, 232);
    leather.setColorAt(0.88, dark);
    leather.setColorAt(0.95, gray);
    leather.setColorAt(1, dark);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(leather, 28));
    painter->drawEllipse(centre, 218, 218);
    painter->setPen(QPen(gray.lighter(160), 1, Qt::DashLine));
    painter->drawEllipse(centre, 210, 210);
}

class WheelWindow : public QWidget
{
public:
    // The keys of line 2 are on the left, column by column from the hub to the rim.
    WheelWindow(Driver *driver, Program *program, const QSize &headUnit)
        : driver(driver), program(program), headUnit(headUnit)
    {
        int placed[] = { 0, 0 };
        for (const WheelKey &key : driver->wheel.keys) {
            const bool left = key.contact[0] == 2;
            const int place = placed[left]++;
            const int distance = 64 + place / padRows * padWidth; // from the centre
            pads.append(QRect(centre.x() + (left ? -distance - padWidth : distance),
                              176 + place % padRows * padHeight, padWidth, padHeight)
                            .adjusted(2, 2, -2, -2));
        }
        setWindowTitle("Steering wheel");
        setFixedSize(wheelSide, wheelSide);
        startProgram();
        startTimer(driver->period);
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        driver->writeNext();
        if (program && outcome.isEmpty() && !program->isRunning()) {
            outcome = program->outcome(*driver);
            QTextStream(program->hasFailed() ? stderr : stdout) << outcome << endl;
            if (program->hasFailed())
                QApplication::exit(1);
        }
        placeOnce();
        update();
    }

    void mousePressEvent(QMouseEvent *event) override
    {
        const QPoint position = event->pos() * wheelSide / width();
        if (event->button() == Qt::LeftButton && display.contains(position))
            startProgram();
        for (int i = 0; i < pads.size(); ++i) {
            if (event->button() == Qt::LeftButton && pads.at(i).contains(position))
                driver->hold(driver->wheel.keys.at(i));
        }
    }

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton)
            driver->release();
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Space)
            startProgram();
    }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), shade(rect(), dark.lighter(130), dark.darker()));
        painter.scale(qreal(width()) / wheelSide, qreal(width()) / wheelSide);
        paintWheel(&painter);
        paintDriver(&painter);
        for (int i = 0; i < pads.size(); ++i)
            paintPad(&painter, pads.at(i), driver->wheel.keys.at(i));
    }

private:
    void startProgram()
    {
        if (!program || program->isRunning())
            return;
        outcome.clear();
        program->start();
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

    // The files are shown on the instrument cluster, the function on the hub.
    void paintDriver(QPainter *painter) const
    {
        auto state = flagTexts.value(driver->flag(), { "NO FLAG", red });
        if (!outcome.isEmpty())
            state = { outcome, green };
        const QString reading = driver->fault().isEmpty() ? driver->reading() : driver->fault();
        QString note = driver->note();
        if (note.isEmpty() && !outcome.isEmpty())
            note = "Space, or a click here, starts the program again";
        drawBox(painter, display, 12, gray, dark.darker());
        write(painter, display.adjusted(6, 5, -6, -62), state.second, 15, state.first);
        write(painter, display.adjusted(6, 27, -6, -38), white, 16,
              reading.isEmpty() ? "press a key" : reading);
        write(painter, display.adjusted(10, 51, -10, -5), yellow, 11, note);

        const QString function = driver->function();
        const QColor colour = function.isEmpty() ? gray : function == "none" ? red : green;
        drawBox(painter, hub, hub.width() / 2, colour, dark);
        write(painter, hub.adjusted(12, 36, -12, -36), colour, 20,
              function.isEmpty() ? "SWC" : function);
        write(painter, hub.adjusted(20, 24, -20, -76), white, 11,
              function.isEmpty() ? "" : "decoded as");
    }

    void paintPad(QPainter *painter, const QRect &pad, const WheelKey &key) const
    {
        const bool held = &key == driver->held();
        const bool lit = driver->held() && key.name == driver->function();
        drawBox(painter, pad, 6, held ? white : gray, lit ? green : held ? blue : gray.darker());
        write(painter, pad.adjusted(5, 4, -5, -4), lit || held ? dark : white, 12, key.label);
    }

    Driver *driver;
    Program *program; // nullptr for none
    const QSize headUnit;
    QSize frame;
    QString outcome; // of the program, empty until it has ended
    QVector<QRect> pads; // one for each key
};

} // namespace

int showWheel(Driver *driver, Program *program, const QSize &headUnit)
{
    WheelWindow window(driver, program, headUnit);
    window.show();
    return QApplication::exec();
}
