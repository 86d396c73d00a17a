// A hand on the windows that open: it enters what it was told to, and presses OK.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>

#include <functional>

class QDialog;

// Runs the event loop until `done`, which is looked at every few milliseconds.
void LoopUntil(const std::function<bool()> &done);

// Works on every dialog that opens while it lives, but those that only show a wait. What is not closed
// by an OK gets further ones; too many end the program.
class Hand : public QObject
{
public:
    using Entry = std::function<void(QDialog &)>;

    // `beforeOk` is called before the OK of dialogs that stand over no other one.
    explicit Hand(std::function<void()> beforeOk);

    // What to enter in dialogs of that class before OK.
    void Enter(const char *className, const Entry &entry);

    // How often OK was pressed.
    [[nodiscard]] int Presses() const { return presses; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void WorkOn(QDialog &dialog);
    void PressOk(QDialog &dialog, int time);

    const std::function<void()> beforeOk;
    QHash<QByteArray, Entry> entries;
    int presses = 0;
};
