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

    // What belongs to the start besides: the program ends no sooner than LetGo() is called.
    void Hold() { held = true; }
    void LetGo()
    {
        held = false;
        QuitWhenDone();
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, this, [this] {
                painted = true;
                QuitWhenDone();
            });
        }
        return false;
    }

private:
    void QuitWhenDone() const
    {
        if (painted && !held) {
            std::_Exit(EXIT_SUCCESS);
        }
    }

    bool held = false;
    bool painted = false;
};
