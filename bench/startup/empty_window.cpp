// What the toolkit itself needs until a window is on the screen.
#include "startup/first_paint.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    QMainWindow window;
    window.resize(1000, 680);
    const QuitAfterPaint watch(window);
    window.show();
    return QApplication::exec();
}
