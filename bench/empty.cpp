#include <QApplication>
#include <QWidget>

// What any program with a window pays.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    return QApplication::exec();
}
