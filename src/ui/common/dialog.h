// A modal window whose keyboard is in order.
#pragma once

#include <QDialog>

// Before it is first shown, Tab is made to follow the layout, labels and buttons get their mnemonics,
// and the first control takes the focus unless another one has it.
class Dialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    void setVisible(bool visible) override;

private:
    bool isArranged = false;
};
