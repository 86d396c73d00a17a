#include "ui/accounts/statistics_dialog.h"

#include "base/amount_text.h"
#include "ui/accounts/owner_notice.h"
#include "ui/accounts/traffic_chart.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/heading_line.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// A read-only field for the amount; empty when the owner's mode does not count it.
void AddField(QFormLayout &form,
              const QString &label,
              const char *objectName,
              double amount,
              bool counted = true)
{
    auto *field = ShownValue(objectName);
    field->setText(counted ? AmountText(amount) : QString());
    field->setAlignment(Qt::AlignRight);
    form.addRow(LabelFor(label, *field), field);
}

} // namespace

Result<std::optional<OwnerUsage>> ReadOwnerUsage(const Owner &owner)
{
    auto statistics = ReadStatistics(owner);
    if (!statistics) {
        return tl::unexpected(std::move(statistics.error()));
    }
    auto name = NameOf(owner);
    if (!name) {
        return tl::unexpected(std::move(name.error()));
    }
    auto days = ReadDailyTraffic(owner);
    if (!days) {
        return tl::unexpected(std::move(days.error()));
    }
    if (!*statistics || !*name) {
        return std::nullopt;
    }
    return OwnerUsage {**std::move(name), **std::move(statistics), *std::move(days)};
}

StatisticsDialog::StatisticsDialog(const Owner &owner, OwnerUsage usage, QWidget *parent)
    : Dialog(parent)
{
    setWindowTitle(owner.IsUser() ? tr("User statistics") : tr("Group statistics"));
    StaysUnlocked();
    const UsageStatistics &statistics = usage.statistics;
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &StatisticsDialog::accept);
    auto *layout = new QGridLayout(this);
    layout->addWidget(OwnerHeading(owner, usage.ownerName, this), 0, 0, 1, 2);
    layout->addWidget(PeriodBox(owner, statistics.period), 1, 0);
    layout->addWidget(OverallBox(statistics), 1, 1);
    layout->addWidget(TipBox(StatisticsTip(owner, statistics.period)), 2, 0, 1, 2);
    layout->addWidget(ChartBox(std::move(usage.days)), 3, 0, 1, 2);
    layout->addWidget(buttons, 4, 0, 1, 2);
    layout->setRowStretch(3, 1);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

QWidget *StatisticsDialog::PeriodBox(const Owner &owner, const PeriodUsage &period)
{
    auto *box = new QGroupBox(tr("Accounting period"), this);
    auto *form = new QFormLayout(box);
    AddField(*form,
             tr("Data received, Mb"),
             "periodReceived",
             period.received.value,
             period.limitsTraffic);
    if (owner.IsUser()) {
        AddField(*form, tr("Data sent, Mb"), "periodSent", period.sent.value, period.limitsTraffic);
        AddField(
            *form, tr("Time On-Line, hr"), "periodTime", period.hours.value, period.limitsTime);
    }
    return box;
}

QWidget *StatisticsDialog::OverallBox(const UsageStatistics &statistics)
{
    auto *box = new QGroupBox(tr("Overall"), this);
    auto *form = new QFormLayout(box);
    AddField(*form, tr("Data received, Mb"), "overallReceived", statistics.received.value);
    AddField(*form, tr("Data sent, Mb"), "overallSent", statistics.sent.value);
    return box;
}

QWidget *StatisticsDialog::TipBox(const QString &tip)
{
    auto *box = new QGroupBox(tr("Tip"), this);
    auto *text = new QLabel(tip, box);
    text->setObjectName(u"tip"_s);
    text->setWordWrap(true);
    auto *layout = new QGridLayout(box);
    layout->addWidget(text);
    return box;
}

QWidget *StatisticsDialog::ChartBox(std::vector<DailyTraffic> days)
{
    auto *box = new QGroupBox(tr("Last 30 days"), this);
    auto *chart = new TrafficChart(box);
    chart->setObjectName(u"chart"_s);
    chart->SetDays(std::move(days));
    auto *layout = new QGridLayout(box);
    layout->addWidget(chart);
    return box;
}
