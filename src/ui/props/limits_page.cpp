#include "ui/props/limits_page.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "base/amount_text.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/props/limit_dialogs.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

void AddRow(QGridLayout &grid, const QString &label, QLineEdit *value, QPushButton *change)
{
    const int row = grid.rowCount();
    grid.addWidget(LabelFor(label, *value), row, 0);
    grid.addWidget(value, row, 1);
    grid.addWidget(change, row, 2);
}

} // namespace

LimitsPage::LimitsPage(const AppServices &appServices,
                       const Owner &whose,
                       const AccountingMode &stagedMode,
                       LimitsDraft &staged,
                       QWidget *parent)
    : Page(parent)
    , services(appServices)
    , owner(whose)
    , mode(stagedMode)
    , draft(staged)
    , period(MakeLine("period", "changePeriod", tr("Change accounting period")))
    , traffic(MakeLine("trafficLimit", "changeTraffic", tr("Change traffic limit")))
    , rate(MakeLine("price", "changeRate", tr("Change rate")))
    , global(MakeButton<QCheckBox>(tr("Use global settings"), "useGlobal"))
{
    if (owner.IsUser()) {
        time = MakeLine("timeLimit", "changeTime", tr("Change time limit"));
        connect(time.change, &QPushButton::clicked, this, &LimitsPage::ChangeTime);
    }
    auto *column = new QVBoxLayout(this);
    column->addWidget(MakeLimits());
    column->addWidget(MakeRates());
    column->addStretch();
    connect(period.change, &QPushButton::clicked, this, &LimitsPage::ChangePeriod);
    connect(traffic.change, &QPushButton::clicked, this, &LimitsPage::ChangeTraffic);
    connect(rate.change, &QPushButton::clicked, this, &LimitsPage::ChangeRate);
    connect(global, &QCheckBox::toggled, this, &LimitsPage::UseGlobal);
}

LimitsPage::Line
LimitsPage::MakeLine(const char *valueName, const char *buttonName, const QString &says)
{
    return {ShownValue(valueName), MakeButton<QPushButton>(tr("Change"), buttonName, says)};
}

void LimitsPage::Line::Enable(bool enabled) const
{
    if (value != nullptr) {
        value->setEnabled(enabled);
        change->setEnabled(enabled);
    }
}

QGroupBox *LimitsPage::MakeLimits()
{
    auto *box = new QGroupBox(tr("Fixed limits within accounting period"));
    auto *grid = new QGridLayout(box);
    AddRow(*grid, tr("Accounting period"), period.value, period.change);
    AddRow(*grid, tr("Traffic limit, Mb"), traffic.value, traffic.change);
    if (time.value != nullptr) {
        AddRow(*grid, tr("Time limit, Hr"), time.value, time.change);
    }
    return box;
}

QGroupBox *LimitsPage::MakeRates()
{
    auto *box = new QGroupBox(tr("Rates"));
    auto *grid = new QGridLayout(box);
    AddRow(*grid, tr("Traffic,"), rate.value, rate.change);
    grid->addWidget(global, grid->rowCount(), 1, 1, 2);
    return box;
}

QString LimitsPage::Title() const
{
    return tr("Limits");
}

void LimitsPage::Activate()
{
    const LimitFields fields = FieldsFor(mode);
    period.Enable(fields.period);
    traffic.Enable(fields.traffic);
    time.Enable(fields.time);
    global->setEnabled(fields.rates);
    ReadStored();
    ShowStaged();
}

void LimitsPage::ReadStored()
{
    const auto now = Await(
        services, this, tr("Reading the limits..."), [whose = owner] { return ReadLimits(whose); });
    if (!now) {
        TellUnread(services, tr("The limits could not be read."), now.error());
    } else if (!*now) {
        Complain(services.prompt,
                 owner.IsUser() ? tr("This user has been deleted meanwhile.")
                                : tr("This group has been deleted meanwhile."));
    } else {
        draft.TakeStored(**now);
    }
}

void LimitsPage::ShowStaged()
{
    const LimitFields fields = FieldsFor(mode);
    const Limits limits = draft.Staged();
    const auto number = [](bool shown, quint32 value) {
        return shown ? QString::number(value) : QString();
    };
    period.value->setText(fields.period ? PeriodName(PeriodIn(mode, limits)) : QString());
    traffic.value->setText(number(fields.traffic, limits.traffic.value));
    if (time.value != nullptr) {
        time.value->setText(number(fields.time, limits.time.value));
    }
    const QSignalBlocker silent(global);
    global->setChecked(fields.rates && !limits.ownPrice);
    ShowPrice(fields.rates && limits.ownPrice);
}

void LimitsPage::ShowPrice(bool ownPrice)
{
    rate.Enable(ownPrice);
    rate.value->setText(ownPrice ? AmountText(draft.Staged().price) : QString());
}

void LimitsPage::ChangePeriod()
{
    PeriodDialog dialog(services.prompt, PeriodIn(mode, draft.Staged()), this);
    if (dialog.exec() == QDialog::Accepted) {
        draft.period = dialog.Period();
        ShowStaged();
    }
}

void LimitsPage::ChangeTraffic()
{
    LimitDialog dialog(
        services.prompt, tr("Traffic limit, Mb"), draft.Staged().traffic.value, this);
    if (dialog.exec() == QDialog::Accepted) {
        draft.traffic = WholeMegabytes {dialog.Limit()};
        ShowStaged();
    }
}

void LimitsPage::ChangeTime()
{
    LimitDialog dialog(services.prompt, tr("Time limit, Hr"), draft.Staged().time.value, this);
    if (dialog.exec() == QDialog::Accepted) {
        draft.time = WholeHours {dialog.Limit()};
        ShowStaged();
    }
}

void LimitsPage::ChangeRate()
{
    RateDialog dialog(services.prompt, draft.Staged().price, this);
    if (dialog.exec() == QDialog::Accepted) {
        draft.price = dialog.Rate();
        ShowStaged();
    }
}

void LimitsPage::UseGlobal(bool useGlobal)
{
    draft.ownPrice = !useGlobal;
    ShowPrice(!useGlobal);
}

CAdministratorUserPLimits::CAdministratorUserPLimits(const AppServices &appServices,
                                                     UserRecord &record,
                                                     QWidget *parent)
    : LimitsPage(appServices, record.Self(), record.draft.mode, record.limits, parent)
{ }

CAdministratorGroupPLimits::CAdministratorGroupPLimits(const AppServices &appServices,
                                                       GroupRecord &record,
                                                       QWidget *parent)
    : LimitsPage(appServices, record.Self(), record.draft.mode, record.limits, parent)
{ }
