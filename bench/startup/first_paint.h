// Ends the program as soon as its window was painted for the first time.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

class QuitAfterPaint : public QObject
{
public:
    explicit QuitAfterPaint(QWidget &window) { window.installEventFilter(this); }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
        }
        return false;
    }
};
