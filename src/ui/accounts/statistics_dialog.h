// "User statistics" and "Group statistics": figures of the accounting period and overall, and the
// traffic of the last 30 days.
#pragma once

#include "accounts/statistics.h"

#include <QDialog>

class QFormLayout;

class StatisticsDialog : public QDialog
{
    Q_OBJECT

public:
    StatisticsDialog(const Owner &owner, QWidget *parent);

private:
    [[nodiscard]] QWidget *PeriodBox(const Owner &owner, const PeriodUsage &period);
    [[nodiscard]] QWidget *OverallBox(const UsageStatistics &statistics);
    [[nodiscard]] QWidget *TipBox(const QString &tip);
    [[nodiscard]] QWidget *ChartBox(const Owner &owner);
};
