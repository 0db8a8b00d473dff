#include "wheelwindow.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace {

const QSize applicationSize(800, 480);
constexpr int flagPolling = 100; // ms

// The application takes all that panels and margins leave free, so a margin is the place to be
// seen. Without one it is right of the application's smaller screen or below it.
QRect besideApplication(const QRect &screen, const QRect &available, const QSize &size)
{
    for (const QRect &application : { available, QRect(available.topLeft(), applicationSize) }) {
        const QRect right(application.topRight() + QPoint(1, 0), size);
        const QRect below(application.bottomLeft() + QPoint(0, 1), size);
        for (const QRect &place : { right, below }) {
            if (screen.contains(place))
                return place;
        }
    }
    QRect corner(available.topLeft(), size);
    corner.moveBottomRight(available.bottomRight());
    return corner;
}

} // namespace

WheelWindow::WheelWindow(Driver *driver, const Wheel &wheel)
    : driver(driver), wheel(wheel), picture(wheel)
{
    setWindowTitle("Steering wheel");
    setFixedSize(WheelPicture::size());
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    const QRect place = besideApplication(screen->geometry(), available, size());
    move(place.topLeft());
    // Window managers push any other window out of a margin.
    setAttribute(Qt::WA_X11NetWmWindowTypeDock, !available.contains(place));

    connect(driver, SIGNAL(wrote(QString, int)), this, SLOT(onWrote(QString, int)));
    connect(driver, SIGNAL(failed(QString)), this, SLOT(onFailed(QString)));
    connect(&flagTimer, SIGNAL(timeout()), this, SLOT(readFlag()));
    flagTimer.start(flagPolling);
    readFlag();
}

void WheelWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    picture.paint(&painter, state);
}

void WheelWindow::mousePressEvent(QMouseEvent *event)
{
    const int key = picture.keyAt(event->pos());
    if (event->button() != Qt::LeftButton || key == -1)
        return;
    state.heldKey = key;
    driver->hold(wheel.keys.at(key));
}

void WheelWindow::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && driver->isHeld()) {
        driver->release();
        state.heldKey = -1;
        update();
    }
}

void WheelWindow::onWrote(const QString &reading, int decodedCode)
{
    state.reading = reading;
    if (driver->isHeld()) { // the function of the last press stays in sight
        state.decoded = driver->isLearning() ? QString() : wheel.functionName(decodedCode);
    }
    update();
}

void WheelWindow::onFailed(const QString &fault)
{
    state.reading = fault;
    update();
}

void WheelWindow::readFlag()
{
    const QByteArray flag = driver->flag();
    if (flag == state.flag)
        return;
    state.flag = flag;
    state.decoded.clear();
    update();
}
