#include "buttonstyles.h"
#include "catalogue.h"
#include "screen.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

// floor [empty]: the program's screen and nothing behind it, or an empty window: what any program
// with this screen pays, or with any. It stays the plainest code that paints the same pixels, so
// that the comparison is with what is needed.
namespace {

constexpr int keysPerRow = 8;
constexpr char line[] = "background-color:gray;";

QLabel *label(QWidget *window, const QString &style, int height, const QString &text = QString())
{
    auto *label = new QLabel(text, window);
    label->setStyleSheet(style);
    label->setFixedHeight(height);
    return label;
}

QPushButton *button(QWidget *window, const QString &icon, const QSize &size)
{
    auto *button = new QPushButton(window);
    button->setIconSize(size);
    button->setFixedSize(size);
    button->setIcon(QIcon(icon));
    button->setStyleSheet(ButtonStyles::unlearned);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QGridLayout *keys(QWidget *window, const QSize &screen)
{
    const QSize size(int(screen.width() * 0.86 * 0.125), int(screen.height() * 0.72 / 6.0));
    QFile file(":/img/btListInfo.txt");
    file.open(QIODevice::ReadOnly);
    const QStringList icons = readCatalogue(file).iconPaths;

    auto *grid = new QGridLayout;
    for (int i = 0; i < icons.size(); ++i)
        grid->addWidget(button(window, icons.at(i), size), i / keysPerRow, i % keysPerRow,
                        Qt::AlignCenter);
    grid->addWidget(label(window, line, 1), grid->rowCount(), 0, 1, keysPerRow);
    auto *controls = new QHBoxLayout;
    for (const char *icon : { ":/img/save.png", ":/img/clear.png" })
        controls->addWidget(button(window, icon, size), 1, Qt::AlignCenter);
    grid->addLayout(controls, grid->rowCount(), 0, 1, keysPerRow);
    return grid;
}

QWidget *screenOfKeys()
{
    QFontDatabase().families();
    QApplication::setFont(QFont("Droid Sans Fallback", 16));
    auto *window = new QWidget;
    const QRect screen = availableScreen();
    const int upperPart = 3 * screen.height() / 8;
    window->setGeometry(screen);
    window->setWindowFlags(Qt::WindowStaysOnTopHint);
    window->setPalette(QPalette(Qt::gray, Qt::black));

    QLabel *title =
        label(window, "background-color:rgb(0, 0, 0);font-size:30px;color:white;font:bold",
              int(upperPart * 0.3), "Velmora");
    title->setAlignment(Qt::AlignCenter);
    QLabel *instructions =
        label(window, "background-color:rgb(0, 0, 0);font-size:20px;color:white;font:normal",
              int(upperPart * 0.7),
              "1. Tap a button below. It turns from gray to blue.\n"
              "2. Press and release its key on the wheel. The button turns green.\n"
              "3. Repeat steps 1 and 2 for every key that you need.\n"
              "4. Tap the button with the green tick to save and exit.");
    instructions->setWordWrap(true);
    instructions->setFixedWidth(int(screen.width() * 0.94));

    auto *layout = new QVBoxLayout(window);
    layout->addWidget(title, 1, Qt::AlignCenter);
    layout->addWidget(label(window, line, 1));
    layout->addWidget(instructions, 3, Qt::AlignCenter);
    layout->addWidget(label(window, line, 1));
    layout->addLayout(keys(window, screen.size()), 10);
    return window;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const std::unique_ptr<QWidget> window(argc == 1 ? screenOfKeys() : new QWidget);
    window->show();
    return QApplication::exec();
}
