// The small dialogs of the limits page: "Accounting period", "Limit" and "Rate".
#pragma once

#include <QDialog>

class AmountField;
class QListWidget;
class WholeNumberField;

// "Day" or "Month" for a period (db/value_codes.h), an empty text for any other code.
[[nodiscard]] QString PeriodName(quint32 period);

class PeriodDialog : public QDialog
{
    Q_OBJECT

public:
    // Starts with `period` chosen; a code of no meaning chooses nothing.
    explicit PeriodDialog(quint32 period, QWidget *parent = nullptr);

    void accept() override;

    [[nodiscard]] quint32 Period() const; // 0 while nothing is chosen

private:
    QListWidget *list;
};

class LimitDialog : public QDialog
{
    Q_OBJECT

public:
    // `label` names the limit and its unit.
    LimitDialog(const QString &label, quint32 limit, QWidget *parent = nullptr);

    void accept() override;

    [[nodiscard]] quint32 Limit() const; // 0 to 2147483647

private:
    WholeNumberField *field;
};

class RateDialog : public QDialog
{
    Q_OBJECT

public:
    static constexpr double kMost = 1e9;

    explicit RateDialog(double rate, QWidget *parent = nullptr);

    void accept() override;

    [[nodiscard]] double Rate() const; // 0 to 1e9, two decimals

private:
    AmountField *field;
};
