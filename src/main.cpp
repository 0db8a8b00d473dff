#include "keymainwindow.h"
#include "platform.h"
#include "util.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int chineseIndex = 1; // every other system language means English

// If the program is started without standard input, output or error, the next file that it opens
// gets that descriptor. This may be the connection to the display, which the log would then damage.
void openStandardFiles()
{
    for (int file : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        if (fcntl(file, F_GETFD) == -1)
            open("/dev/null", O_RDWR); // open() takes the lowest free descriptor
    }
}

void installTranslation(QApplication *application, const QString &path)
{
    const QFile file(path);
    if (!file.exists()) {
        qDebug() << "[swc_print] no exist.";
        return;
    }
    // An empty string. A null string would select Qt's default suffix and delimiters.
    const QString none("");
    auto *translator = new QTranslator(application);
    const bool loaded = translator->load(path, none, none, none);
    qDebug() << "[swc_print] load" << loaded;
    const bool installed = QCoreApplication::installTranslator(translator);
    qDebug() << "[swc_print] path" << file.fileName() << " install" << installed;
}

} // namespace

int main(int argc, char **argv)
{
    openStandardFiles();
    std::signal(SIGPIPE, SIG_IGN); // if the reader of the log has ended, continue without it

    QApplication application(argc, argv);
    Util util;
    const bool chinese = util.getLanguageIdx() == chineseIndex;
    installTranslation(&application, chinese ? Platform::chineseTexts : Platform::englishTexts);

    const QStringList families = QFontDatabase().families();
    qDebug() << "[swc_print] list" << families << "size" << families.size();
    QFont font;
    font.setFamily("Droid Sans Fallback");
    font.setPointSize(16);
    QApplication::setFont(font);
    qDebug() << "[swc_print]:"
             << "Start Velmora...";

    KeyMainWindow window(nullptr);
    window.show();
    return QApplication::exec();
}
