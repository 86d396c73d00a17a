// A window that shows one word: what the toolkit's first use of fonts adds to an empty one.
#include "startup/first_paint.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel(u"Users"_s));
    window.resize(1000, 680);
    const QuitAfterPaint watch(window);
    window.show();
    return QApplication::exec();
}
