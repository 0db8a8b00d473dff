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

// The program's screen and nothing behind it: what any program with this screen pays. It stays the
// plainest code that paints the same pixels, so that the comparison is with what is needed.
namespace {

constexpr int keysPerRow = 8;

QLabel *addLabel(QWidget *window, const QString &text, const QString &style, int height)
{
    auto *label = new QLabel(text, window);
    label->setStyleSheet(style);
    label->setFixedHeight(height);
    return label;
}

QLabel *addLine(QWidget *window)
{
    return addLabel(window, QString(), "background-color:gray;", 1);
}

QPushButton *addButton(QWidget *window, const QString &icon, const QSize &size)
{
    auto *button = new QPushButton(window);
    button->setIconSize(size);
    button->setFixedSize(size);
    button->setIcon(QIcon(icon));
    button->setStyleSheet(ButtonStyles::unlearned);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QGridLayout *keys(QWidget *window, const QSize &size)
{
    QFile file(":/img/btListInfo.txt");
    file.open(QIODevice::ReadOnly);
    const QStringList icons = readCatalogue(file).iconPaths;

    auto *grid = new QGridLayout;
    for (int i = 0; i < icons.size(); ++i)
        grid->addWidget(addButton(window, icons.at(i), size), i / keysPerRow, i % keysPerRow,
                        Qt::AlignCenter);
    grid->addWidget(addLine(window), grid->rowCount(), 0, 1, keysPerRow);
    auto *controls = new QHBoxLayout;
    controls->addWidget(addButton(window, ":/img/save.png", size), 1, Qt::AlignCenter);
    controls->addWidget(addButton(window, ":/img/clear.png", size), 1, Qt::AlignCenter);
    grid->addLayout(controls, grid->rowCount(), 0, 1, keysPerRow);
    return grid;
}

void build(QWidget *window)
{
    const QRect screen = availableScreen();
    const bool known = screen.size() == QSize(800, 480) || screen.size() == QSize(1024, 600);
    const QSize buttonSize = known
        ? QSize(int(screen.width() * 0.86 * 0.125), int(screen.height() * 0.72 / 6.0))
        : QSize(150, 72);
    const int upperPart = 3 * screen.height() / 8;

    window->setGeometry(screen);
    window->setWindowFlags(Qt::WindowStaysOnTopHint);
    QPalette palette = window->palette();
    palette.setColor(QPalette::Window, Qt::black);
    window->setPalette(palette);

    QLabel *title = addLabel(window, "Velmora",
                             "background-color:rgb(0, 0, 0);font-size:30px;color:white;font:bold",
                             int(upperPart * 0.3));
    title->setAlignment(Qt::AlignCenter);
    QLabel *instructions =
        addLabel(window,
                 "1. Tap a button below. It turns from gray to blue.\n"
                 "2. Press and release its key on the wheel. The button turns green.\n"
                 "3. Repeat steps 1 and 2 for every key that you need.\n"
                 "4. Tap the button with the green tick to save and exit.",
                 "background-color:rgb(0, 0, 0);font-size:20px;color:white;font:normal",
                 int(upperPart * 0.7));
    instructions->setWordWrap(true);
    instructions->setFixedWidth(int(screen.width() * 0.94));

    auto *layout = new QVBoxLayout(window);
    layout->addWidget(title, 1, Qt::AlignCenter);
    layout->addWidget(addLine(window));
    layout->addWidget(instructions, 3, Qt::AlignCenter);
    layout->addWidget(addLine(window));
    layout->addLayout(keys(window, buttonSize), 10);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QFontDatabase().families();
    QFont font("Droid Sans Fallback", 16);
    QApplication::setFont(font);

    QWidget window;
    build(&window);
    window.show();
    return QApplication::exec();
}
