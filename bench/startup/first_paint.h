// Ends the program at once when its window was painted for the first time: closing, with the settings
// that are written then, is no part of the start.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

class QuitAfterPaint : public QObject
{
public:
    explicit QuitAfterPaint(QWidget &window) { window.installEventFilter(this); }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, QCoreApplication::instance(), [] { std::_Exit(EXIT_SUCCESS); });
        }
        return false;
    }
};
