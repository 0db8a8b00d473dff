#include "keymainwindow.h"

#include "buttonstyles.h"
#include "catalogue.h"
#include "platform.h"
#include "screen.h"

#include <QColor>
#include <QDebug>
#include <QFile>
#include <QFileSystemWatcher>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIODevice>
#include <QIcon>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QRect>
#include <QVBoxLayout>

#include <cstdio>

namespace {

constexpr int keysPerRow = 8;

constexpr char titleStyle[] = "background-color:rgb(0, 0, 0);font-size:30px;color:white;font:bold";
constexpr char instructionsStyle[] =
    "background-color:rgb(0, 0, 0);font-size:20px;color:white;font:normal";
constexpr char separatorStyle[] = "background-color:gray;";

QSize buttonSizeFor(const QSize &screen)
{
    if (screen != QSize(800, 480) && screen != QSize(1024, 600))
        return { 150, 72 };
    return { static_cast<int>(screen.width() * 0.86 * 0.125),
             static_cast<int>(screen.height() * 0.72 / 6.0) };
}

} // namespace

KeyMainWindow::KeyMainWindow(QWidget *parent) : QWidget(parent)
{
    const QRect available = availableScreen();
    setGeometry(available);
    std::printf("x:%d, y:%d\n", available.width(), available.height());
    std::fflush(stdout); // otherwise a pipe would get the line only at the end

    setWindowFlags(Qt::WindowStaysOnTopHint);
    QPalette black = palette();
    black.setBrush(QPalette::Window, QColor(0, 0, 0));
    setPalette(black);
    setAutoFillBackground(true);

    QFile file(":/img/btListInfo.txt");
    if (!file.exists() || !file.open(QIODevice::ReadOnly)) {
        qDebug("[swc_print][%s %d] no key catalogue", __func__, __LINE__);
        return;
    }
    if (loadSwcKeys() > 0)
        backupDirection();
    const Catalogue catalogue = readCatalogue(file);
    file.close();

    buildScreen(catalogue, available.size());
    initSampleKeys();
    writeLearnFlag(true);
    watchReadings();
}

KeyMainWindow::~KeyMainWindow()
{
    qDebug("%s", __func__);
    writeLearnFlag(false);
    delete fileWatcher;
    for (auto key = mapButtonKeys.cbegin(); key != mapButtonKeys.cend(); ++key)
        delete key.key();
    delete btnSave;
    delete btnClear;
}

void KeyMainWindow::buildScreen(const Catalogue &catalogue, const QSize &screen)
{
    auto *layout = new QVBoxLayout;
    const int upperPart = 3 * screen.height() / 8;
    QLabel *title = createText(tr("Velmora"), titleStyle, Qt::AlignCenter);
    title->setFixedHeight(static_cast<int>(upperPart * 0.3));
    layout->addWidget(title, 1, Qt::AlignCenter);
    layout->addWidget(createSeparator());
    QLabel *instructions = createInstructions();
    instructions->setFixedSize(static_cast<int>(screen.width() * 0.94),
                               static_cast<int>(upperPart * 0.7));
    layout->addWidget(instructions, 3, Qt::AlignCenter);
    layout->addWidget(createSeparator());
    layout->addLayout(createGrid(catalogue, buttonSizeFor(screen)), 10);
    setLayout(layout);

    connect(btnClear, SIGNAL(clicked()), this, SLOT(onTouchKeysClicked()));
    connect(btnSave, SIGNAL(clicked()), this, SLOT(onTouchKeysClicked()));
}

QLabel *KeyMainWindow::createText(const QString &text, const char *style, Qt::Alignment alignment)
{
    auto *label = new QLabel(text, this);
    QPalette white;
    white.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(white);
    label->setStyleSheet(style);
    label->setScaledContents(true);
    label->setAlignment(alignment);
    return label;
}

QLabel *KeyMainWindow::createInstructions()
{
    const QString text =
        tr("The operation steps are as follows:\n"
           "1. Click the below button(the button changes from gray to blue);\n"
           "2. Next, click the key on SWC(the button clicked in the first step changes from blue "
           "to green);\n"
           "3. Repeat steps 1 and 2 to learn all the keys you need on SWC;\n"
           "4. Finally, click the green tick key to save and exit.");
    QLabel *instructions = createText(text, instructionsStyle, Qt::AlignLeft | Qt::AlignVCenter);
    instructions->setWordWrap(true);
    return instructions;
}

QLabel *KeyMainWindow::createSeparator()
{
    auto *separator = new QLabel(this);
    separator->setStyleSheet(separatorStyle);
    separator->setFixedHeight(1);
    return separator;
}

QPushButton *KeyMainWindow::createButton(const QString &icon, const char *style, const QSize &size)
{
    auto *button = new QPushButton(this);
    button->setIconSize(size);
    button->setFixedSize(size);
    button->setIcon(QIcon(icon));
    button->setStyleSheet(style);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QGridLayout *KeyMainWindow::createGrid(const Catalogue &catalogue, const QSize &buttonSize)
{
    auto *grid = new QGridLayout;
    for (int i = 0; i < catalogue.codes.size(); ++i) {
        const int code = catalogue.codes.at(i);
        const char *style =
            isKeyLearned(code) ? ButtonStyles::learnedAtStart : ButtonStyles::unlearned;
        QPushButton *button = createButton(catalogue.iconPaths.at(i), style, buttonSize);
        mapButtonKeys.insert(button, code);
        connect(button, SIGNAL(clicked()), this, SLOT(onTouchKeysClicked()));
        grid->addWidget(button, i / keysPerRow, i % keysPerRow, Qt::AlignCenter);
    }
    grid->addWidget(createSeparator(), grid->rowCount(), 0, 1, keysPerRow);
    grid->addLayout(createControls(buttonSize), grid->rowCount(), 0, 1, keysPerRow);
    return grid;
}

QHBoxLayout *KeyMainWindow::createControls(const QSize &buttonSize)
{
    auto *controls = new QHBoxLayout;
    btnSave = createButton(":/img/save.png", ButtonStyles::unlearned, buttonSize);
    btnClear = createButton(":/img/clear.png", ButtonStyles::unlearned, buttonSize);
    controls->addWidget(btnSave, 1, Qt::AlignCenter);
    controls->addWidget(btnClear, 1, Qt::AlignCenter);
    return controls;
}

void KeyMainWindow::watchReadings()
{
    fileWatcher = new QFileSystemWatcher(this);
    if (!QFile::exists(Platform::reading))
        return;
    fileWatcher->addPath(Platform::reading);
    connect(fileWatcher, SIGNAL(fileChanged(QString)), this, SLOT(onFileChange(QString)));
}
