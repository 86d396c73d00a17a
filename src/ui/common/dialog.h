// A modal window whose keyboard is in order.
#pragma once

#include <QDialog>

class HeadingLine;

// Before it is first shown, Tab is made to follow the layout, labels and buttons get their mnemonics, a
// key chooses the row of a list from which it could not move, and the first control takes the focus unless another one has it; where that is a button, the default
// one. Return presses the button that was made the default, else OK. Over a window that says whom it is for, it says the same.
// For somebody who only looks (look_lock.h) it is locked and says so.
class Dialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    void setVisible(bool visible) override;

    // Puts this above all else, as the name of what the window is for; the window, which is laid out
    // as a column or as a form, owns it from now on.
    void SetHeading(HeadingLine *heading);

protected:
    // For a window that is not for the same user or group as the one beneath.
    void GoWithoutHeading() { takesHeading = false; }

    // For a window in which nothing is stored that others share: nobody is locked out of it.
    void StaysUnlocked() { isLockable = false; }

private:
    void TakeHeadingFromBeneath();
    void LockForLooking();

    bool isArranged = false;
    bool takesHeading = true;
    bool isLockable = true;
};
