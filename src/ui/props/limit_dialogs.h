// The small dialogs of the limits page: "Accounting period", "Limit" and "Rate".
#pragma once

#include "base/prompt.h"
#include "db/value_codes.h"
#include "ui/common/dialog.h"

class NumberField;
class QListWidget;

// "Day" or "Month", an empty text for any other code.
[[nodiscard]] QString PeriodName(LimitPeriod period);

class PeriodDialog : public Dialog
{
    Q_OBJECT

public:
    // Starts with `period` chosen; a code of no meaning chooses nothing.
    PeriodDialog(Prompt &prompt, LimitPeriod period, QWidget *parent = nullptr);

    void accept() override;

    [[nodiscard]] LimitPeriod Period() const; // None while nothing is chosen

private:
    Prompt &prompt;
    QListWidget *list;
};

class LimitDialog : public Dialog
{
    Q_OBJECT

public:
    // `label` names the limit and its unit.
    LimitDialog(Prompt &prompt, const QString &label, quint32 limit, QWidget *parent = nullptr);

    void accept() override;

    [[nodiscard]] quint32 Limit() const; // 0 to 2147483647

private:
    Prompt &prompt;
    NumberField *field;
};

class RateDialog : public Dialog
{
    Q_OBJECT

public:
    RateDialog(Prompt &prompt, double rate, QWidget *parent = nullptr);

    void accept() override;

    [[nodiscard]] double Rate() const; // 0 to 1e9, two decimals

private:
    Prompt &prompt;
    NumberField *field;
};
