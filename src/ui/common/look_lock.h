// Windows for somebody who may look at everything and change nothing.
#pragma once

#include <QObject>

#include <functional>

class QDialog;
class QLabel;
class QWidget;

// The window, and each Dialog above it, is for somebody who only looks.
void LetOnlyLook(QWidget &window);

// Whether that was said of the window or of one beneath it.
[[nodiscard]] bool OnlyLooks(const QWidget &window);

// `run`; empty where somebody only looks, so that a command that changes something is not shown.
[[nodiscard]] std::function<void()> Changing(const QWidget &window, std::function<void()> run);

// The control chooses what is seen and changes nothing: it stays as it is in a window that is locked.
void KeepForLooking(QWidget &control);

// One line that says it; the caller's.
[[nodiscard]] QLabel *OnlyLooksLine();

// Keeps every control of a window locked by which something could be entered, whatever the window
// itself makes of it later. Texts can be read and copied; tabs, lists, Close, Cancel and Help stay.
class LookLock : public QObject
{
    Q_OBJECT

public:
    // Lives as long as the window.
    explicit LookLock(QDialog &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Lock(QWidget &control);
};
