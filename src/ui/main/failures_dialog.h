// The statements that failed: when, which, and what the driver said. Never a parameter's value.
#pragma once

#include "ui/common/dialog.h"

class QLabel;
class QTreeWidget;

class FailuresDialog : public Dialog
{
    Q_OBJECT

public:
    explicit FailuresDialog(QWidget *parent);

private:
    void Fill();
    void CopyAll();

    QLabel *summary;
    QTreeWidget *list;
};
