#include "wheelwindow.h"

#include "driver.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWidget>

namespace {

constexpr int padWidth = 43;
constexpr int padHeight = 34;
constexpr int padRows = 4;
const QPoint centre(240, 240);
const QRect hub(182, 186, 116, 116);
const QRect display(124, 74, 232, 76);

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

void write(QPainter *painter, const QRect &rect, const QColor &colour, int pixels,
           const QString &text)
{
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(rect, Qt::AlignCenter | Qt::TextWrapAnywhere, text);
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
    explicit WheelWindow(Driver *driver) : driver(driver)
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
        setFixedSize(480, 480);
        QRect corner = rect();
        corner.moveBottomRight(QGuiApplication::primaryScreen()->availableGeometry().bottomRight());
        move(corner.topLeft());
        startTimer(driver->period);
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        driver->writeNext();
        update();
    }

    void mousePressEvent(QMouseEvent *event) override
    {
        for (int i = 0; i < pads.size(); ++i) {
            if (event->button() == Qt::LeftButton && pads.at(i).contains(event->pos()))
                driver->hold(driver->wheel.keys.at(i));
        }
    }

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton)
            driver->release();
    }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), shade(rect(), dark.lighter(130), dark.darker()));
        paintWheel(&painter);
        paintDriver(&painter);
        for (int i = 0; i < pads.size(); ++i)
            paintPad(&painter, pads.at(i), driver->wheel.keys.at(i));
    }

private:
    // The files are shown on the instrument cluster, the function on the hub.
    void paintDriver(QPainter *painter) const
    {
        const auto flag = flagTexts.value(driver->flag(), { "NO FLAG", red });
        const QString reading = driver->fault().isEmpty() ? driver->reading() : driver->fault();
        drawBox(painter, display, 12, gray, dark.darker());
        write(painter, display.adjusted(0, 4, 0, -40), flag.second, 15, flag.first);
        write(painter, display.adjusted(8, 34, -8, -6), white, 16,
              reading.isEmpty() ? "press a key" : reading);

        const QString function = driver->function();
        const QColor colour = function.isEmpty() ? gray : function == "none" ? red : green;
        drawBox(painter, hub, hub.width() / 2, colour, dark);
        write(painter, hub, colour, 20, function.isEmpty() ? "SWC" : function);
        write(painter, hub.adjusted(0, 24, 0, -76), white, 11,
              function.isEmpty() ? "" : "decoded as");
    }

    void paintPad(QPainter *painter, const QRect &pad, const WheelKey &key) const
    {
        const bool held = &key == driver->held();
        const bool lit = driver->held() && key.name == driver->function();
        drawBox(painter, pad, 6, held ? white : gray, lit ? green : held ? blue : gray.darker());
        write(painter, pad, lit || held ? dark : white, 11, key.label);
    }

    Driver *driver;
    QVector<QRect> pads; // one for each key
};

} // namespace

int showWheel(Driver *driver)
{
    WheelWindow window(driver);
    window.show();
    return QApplication::exec();
}
