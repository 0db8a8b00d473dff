#include "wheelpicture.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int centre = 240;
constexpr int spokeMiddle = 244; // where hub and pads are centred
constexpr int outerRadius = 232;
constexpr int innerRadius = 204;
constexpr int hubRadius = 60;
constexpr int padColumnWidth = 43;
constexpr int padRowHeight = 34;
constexpr int padRows = 4;
constexpr int padGap = 4;

const QColor textColour(0xe8, 0xec, 0xf2);
const QColor dimColour(0x8a, 0x94, 0xa3);
const QColor litColour(0x35, 0xd0, 0x7f);
const QColor heldColour(0x3d, 0x9b, 0xff);
const QColor faultColour(0xff, 0x6b, 0x5e);

struct FlagText
{
    const char *flag;
    const char *text;
    QColor colour;
};

const FlagText flagTexts[] = {
    { "1", "LEARNING", heldColour },
    { "0", "LEARNING OFF", litColour },
    { "11", "KEYS CLEARED", QColor(0xff, 0xb0, 0x3a) },
    { "", "NO FLAG", faultColour },
};

const FlagText &flagTextOf(const QByteArray &flag)
{
    for (const FlagText &each : flagTexts) {
        if (flag == each.flag)
            return each;
    }
    return flagTexts[3];
}

QFont fontOf(int pixels, bool bold)
{
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

QLinearGradient shade(const QRect &rect, const QColor &top, const QColor &bottom)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

QPainterPath circle(int radius)
{
    QPainterPath path;
    path.addEllipse(QPoint(centre, centre), radius, radius);
    return path;
}

// Two broad spokes that carry the pads, one that goes down.
QPainterPath spokes()
{
    QPainterPath across;
    across.moveTo(20, 176);
    across.cubicTo(130, 158, 160, 168, centre, 166);
    across.cubicTo(320, 168, 350, 158, 460, 176);
    across.lineTo(460, 316);
    across.cubicTo(380, 322, 340, 318, 290, 336);
    across.lineTo(190, 336);
    across.cubicTo(140, 318, 100, 322, 20, 316);
    across.closeSubpath();
    QPainterPath down;
    down.moveTo(196, 300);
    down.lineTo(284, 300);
    down.lineTo(268, 450);
    down.lineTo(212, 450);
    down.closeSubpath();
    return across.united(down).intersected(circle(innerRadius + 4));
}

} // namespace

WheelPicture::WheelPicture(const Wheel &wheel) : wheel(wheel), pads(wheel.keys.size())
{
    placePads(2);
    placePads(3);
}

// Column by column from the hub to the rim, four rows each; pads get narrower where there are
// more than three columns.
void WheelPicture::placePads(int line)
{
    QVector<int> keys;
    for (int i = 0; i < wheel.keys.size(); ++i) {
        if (wheel.keys.at(i).contact.line == line)
            keys.append(i);
    }
    const int columns = qMax(3, (keys.size() + padRows - 1) / padRows);
    const int width = 3 * padColumnWidth / columns;
    for (int i = 0; i < keys.size(); ++i) {
        const int column = i / padRows;
        const int left = line == 2 ? centre - hubRadius - 4 - (column + 1) * width
                                   : centre + hubRadius + 4 + column * width;
        const int top = spokeMiddle - padRows * padRowHeight / 2 + i % padRows * padRowHeight;
        pads[keys.at(i)] = QRect(left, top, width, padRowHeight)
                               .adjusted(padGap / 2, padGap / 2, -padGap / 2, -padGap / 2);
    }
}

int WheelPicture::keyAt(const QPoint &point) const
{
    for (int i = 0; i < pads.size(); ++i) {
        if (pads.at(i).contains(point))
            return i;
    }
    return -1;
}

void WheelPicture::paint(QPainter *painter, const WheelState &state) const
{
    painter->setRenderHint(QPainter::Antialiasing);
    paintBody(painter);
    paintDisplay(painter, state);
    paintHub(painter, state);
    for (int i = 0; i < pads.size(); ++i)
        paintPad(painter, i, state);
}

void WheelPicture::paintBody(QPainter *painter) const
{
    const QRect all(QPoint(0, 0), size());
    painter->fillRect(all, shade(all, QColor(0x1b, 0x20, 0x29), QColor(0x0c, 0x0e, 0x12)));
    painter->setPen(QPen(QColor(0, 0, 0, 120), 1));
    painter->setBrush(
        shade(QRect(0, 160, 480, 180), QColor(0x3a, 0x40, 0x4b), QColor(0x1d, 0x21, 0x28)));
    painter->drawPath(spokes());

    QRadialGradient leather(centre, centre, outerRadius);
    leather.setColorAt(double(innerRadius) / outerRadius, QColor(0x14, 0x16, 0x1b));
    leather.setColorAt(0.95, QColor(0x4a, 0x50, 0x5c));
    leather.setColorAt(1, QColor(0x16, 0x18, 0x1d));
    painter->setBrush(leather);
    painter->drawPath(circle(outerRadius).subtracted(circle(innerRadius)));

    painter->setBrush(Qt::NoBrush);
    QPen stitches(QColor(0x9a, 0xa3, 0xb0, 150), 1.4);
    stitches.setDashPattern({ 4, 4 });
    painter->setPen(stitches);
    painter->drawPath(circle(innerRadius + 6));
}

// The instrument cluster, seen through the wheel.
void WheelPicture::paintDisplay(QPainter *painter, const WheelState &state) const
{
    const QRect display(124, 74, 232, 76);
    const FlagText &flag = flagTextOf(state.flag);
    painter->setPen(QPen(QColor(0x39, 0x42, 0x50), 1.5));
    painter->setBrush(QColor(0x08, 0x0b, 0x10));
    painter->drawRoundedRect(display, 12, 12);

    painter->setPen(Qt::NoPen);
    painter->setBrush(flag.colour);
    painter->drawEllipse(QPoint(display.left() + 20, display.top() + 22), 5, 5);
    painter->setPen(flag.colour);
    painter->setFont(fontOf(15, true));
    painter->drawText(display.adjusted(34, 10, -8, 0), Qt::AlignLeft | Qt::AlignTop, flag.text);

    QFont fixed = fontOf(16, false);
    fixed.setFamily("DejaVu Sans Mono");
    fixed.setStyleHint(QFont::TypeWriter);
    painter->setFont(fixed);
    painter->setPen(state.reading.isEmpty() ? dimColour : textColour);
    painter->drawText(display.adjusted(14, 34, -8, -6),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWrapAnywhere,
                      state.reading.isEmpty() ? "press a key" : state.reading);
}

void WheelPicture::paintHub(QPainter *painter, const WheelState &state) const
{
    const bool lit = !state.decoded.isEmpty() && state.decoded != "none";
    const QColor colour = lit ? litColour : faultColour;
    const QRect hub(centre - hubRadius + 2, spokeMiddle - hubRadius + 2, 2 * hubRadius - 4,
                    2 * hubRadius - 4);
    painter->setPen(QPen(state.decoded.isEmpty() ? QColor(0x50, 0x58, 0x66) : colour, 2));
    painter->setBrush(shade(hub, QColor(0x2e, 0x34, 0x3e), QColor(0x15, 0x18, 0x1e)));
    painter->drawEllipse(hub);
    if (state.decoded.isEmpty()) {
        painter->setPen(QColor(0x50, 0x58, 0x66));
        painter->setFont(fontOf(20, true));
        painter->drawText(hub, Qt::AlignCenter, "SWC");
        return;
    }
    painter->setPen(dimColour);
    painter->setFont(fontOf(11, false));
    painter->drawText(hub.adjusted(0, 24, 0, 0), Qt::AlignHCenter | Qt::AlignTop, "decoded as");
    painter->setPen(colour);
    painter->setFont(fontOf(20, true));
    painter->drawText(hub, Qt::AlignCenter, state.decoded);
}

void WheelPicture::paintPad(QPainter *painter, int key, const WheelState &state) const
{
    const bool held = key == state.heldKey;
    const bool lit = state.heldKey != -1 && wheel.keys.at(key).name == state.decoded;
    const QRect &pad = pads.at(key);
    const QColor face = lit ? litColour : held ? heldColour : QColor(0x2a, 0x2f, 0x38);
    painter->setPen(QPen(held ? Qt::white : QColor(0x5a, 0x63, 0x72), held ? 2 : 1));
    painter->setBrush(shade(pad, face.lighter(held || lit ? 110 : 150), face));
    painter->drawRoundedRect(pad, 6, 6);
    painter->setPen(lit || held ? QColor(0x06, 0x10, 0x18) : textColour);
    painter->setFont(fontOf(11, true));
    painter->drawText(pad, Qt::AlignCenter, wheel.keys.at(key).label);
}
