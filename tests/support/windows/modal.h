// Answers to the dialogs and pop-up menus that open while a command runs its own event loop.
#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

class QDialog;
class QMenu;
class QMessageBox;

// Waits for the next window of a kind; one at a time, the newest waits first.
class WindowWatch : public QObject
{
public:
    ~WindowWatch() override;
    WindowWatch(const WindowWatch &) = delete;
    WindowWatch &operator=(const WindowWatch &) = delete;

protected:
    WindowWatch(const char *windowClass, std::function<void(QWidget &)> act);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Meet(QWidget &window);
    [[nodiscard]] bool IsGone() const;

    const char *windowClass;
    std::function<void(QWidget &)> act;
    QPointer<QWidget> met;
    bool done = false;
};

// Acts on the next modal dialog that opens. A test fails when none opens while this lives, or when
// the dialog still stands after `answer` (it is then closed, so that the test goes on).
class WhileModal : public WindowWatch
{
public:
    explicit WhileModal(std::function<void(QDialog &)> answer);
};

// Closes every modal dialog that opens while this lives, and counts them.
class ClosedDialogs : public QObject
{
public:
    ClosedDialogs();

    // Since the last call.
    [[nodiscard]] int Take();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int count = 0;
};

// As WhileModal for the window of a wait, which the others leave alone: a wait that takes long on a busy
// machine is none of theirs.
class WhileWaiting : public WindowWatch
{
public:
    explicit WhileWaiting(std::function<void(QDialog &)> answer);
};

// As WhileModal for the next pop-up menu; it is closed after `answer`.
class WhileMenu : public WindowWatch
{
public:
    explicit WhileMenu(std::function<void(QMenu &)> answer);
};
