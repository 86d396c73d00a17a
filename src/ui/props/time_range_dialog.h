// "Add time range": a day of the week and two times of day.
#pragma once

#include "base/prompt.h"
#include "ui/common/dialog.h"

#include <QTime>

class QComboBox;
class TimeField;

class TimeRangeDialog : public Dialog
{
    Q_OBJECT

public:
    explicit TimeRangeDialog(Prompt &prompt, QWidget *parent = nullptr);

    // Refuses what is no time, a range that ends before it began, so one across midnight too, and one
    // without a day.
    void accept() override;

    [[nodiscard]] quint32 Day() const; // 1 Monday to 7 Sunday; 0 while none is chosen
    [[nodiscard]] QTime Since() const; // not valid while no time stands there
    [[nodiscard]] QTime Until() const;

private:
    Prompt &prompt;
    QComboBox *day;
    TimeField *since;
    TimeField *until;
};
