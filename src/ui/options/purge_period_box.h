// "Save data for period of time": the days whose records a purge leaves.
#pragma once

#include "admin/purge.h"
#include "base/prompt.h"

#include <QGroupBox>

class DayField;
class QFormLayout;
class QLabel;
class QRadioButton;

class PurgePeriodBox : public QGroupBox
{
    Q_OBJECT

public:
    // "Last month" is chosen at first, unless its first day lies after today: nothing is then.
    PurgePeriodBox();

    // Whether a period is chosen; a custom one may still lack a day.
    [[nodiscard]] bool IsChosen() const;

    // Nothing while no period is chosen, or a custom one lacks a day.
    [[nodiscard]] std::optional<PurgeChoice> Choice() const;

    // Tells, when a custom period lacks a day, or when it ends before it begins, which is mended.
    [[nodiscard]] bool IsInOrder(Prompt &prompt);

    // Says beside each period on which day it begins, counted from today.
    void ShowDays();

signals:
    void Changed();

private:
    struct Period
    {
        PurgeChoice::Keep keep;
        QRadioButton *button;
        QLabel *day;
    };

    void AddPeriod(QFormLayout &rows, PurgeChoice::Keep keep, QRadioButton *button);
    void EnablePickers();

    QList<Period> periods; // those whose first day is computed
    QRadioButton *custom;
    DayField *since;
    DayField *until;
};
