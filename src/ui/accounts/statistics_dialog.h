// "User statistics" and "Group statistics": figures of the accounting period and overall, and the
// traffic of the last 30 days.
#pragma once

#include "accounts/statistics.h"
#include "ui/common/dialog.h"

#include <optional>
#include <vector>

// All that the dialog shows.
struct OwnerUsage
{
    QString ownerName;
    UsageStatistics statistics;
    std::vector<DailyTraffic> days;
};

// Nothing when there is no such user or group any more.
[[nodiscard]] Result<std::optional<OwnerUsage>> ReadOwnerUsage(const Owner &owner);

class StatisticsDialog : public Dialog
{
    Q_OBJECT

public:
    StatisticsDialog(const Owner &owner, OwnerUsage usage, QWidget *parent);

private:
    [[nodiscard]] QWidget *PeriodBox(const Owner &owner, const PeriodUsage &period);
    [[nodiscard]] QWidget *OverallBox(const UsageStatistics &statistics);
    [[nodiscard]] QWidget *TipBox(const QString &tip);
    [[nodiscard]] QWidget *ChartBox(std::vector<DailyTraffic> days);
};
