// "Refresh period": how often the lists are read anew.
#pragma once

#include "base/prompt.h"
#include "ui/common/dialog.h"

class NumberField;

class RefreshPeriodDialog : public Dialog
{
    Q_OBJECT

public:
    // `minutes` is shown at first, brought into 1 to 30.
    RefreshPeriodDialog(Prompt &prompt, int minutes, QWidget *parent);

    // Refuses anything but a whole number of minutes from 1 to 30.
    void accept() override;

    [[nodiscard]] int Minutes() const;

private:
    Prompt &prompt;
    NumberField *period;
};
