#include "ui/props/many_users_dialog.h"

#include "access/limits.h"
#include "app/perform.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"
#include "ui/common/number_field.h"
#include "ui/props/access_type_box.h"
#include "ui/props/limit_dialogs.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QVBoxLayout>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

Result<std::optional<UsersAndAccess>> ReadUsersAndAccess(const std::vector<UserId> &userIds)
{
    auto users = NamesOfUsers(userIds);
    if (!users) {
        return tl::unexpected(std::move(users.error()));
    }
    for (const NamedUser &user : *users) {
        const auto access = ReadModeAndLimits(user.userId);
        if (!access) {
            return tl::unexpected(access.error());
        }
        if (*access) {
            return UsersAndAccess {*std::move(users), **access};
        }
    }
    return std::nullopt;
}

ManyUsersDialog::ManyUsersDialog(const AppServices &appServices,
                                 const UsersAndAccess &opened,
                                 QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , type(new AccessTypeBox(AccessTypeBox::Options::TrafficAndTime))
    , period(new QComboBox)
    , traffic(new NumberField)
    , time(new NumberField)
    , progress(new QProgressBar)
{
    for (const NamedUser &user : opened.users) {
        userIds.push_back(user.userId);
    }
    setWindowTitle(tr("Access properties for multiple users"));
    SetNames(*progress, u"progress"_s, tr("Users changed"));
    progress->setRange(0, static_cast<int>(userIds.size()));
    progress->setValue(0);
    progress->setFormat(u"%v of %m"_s);
    auto *column = new QVBoxLayout(this);
    column->addWidget(MakeNames(opened.users));
    column->addWidget(type);
    column->addWidget(MakeLimits());
    column->addWidget(progress);
    column->addWidget(OkAndCancel(*this));
    connect(type, &AccessTypeBox::Changed, this, &ManyUsersDialog::EnableLimits);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60); // the title bar's buttons aside
    ShowAccess(opened.access);
    EnableLimits();
}

QWidget *ManyUsersDialog::MakeNames(const std::vector<NamedUser> &users)
{
    auto *list = new QListWidget;
    list->setObjectName(u"users"_s);
    list->setUniformItemSizes(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    for (const NamedUser &user : users) {
        new QListWidgetItem(IconOf(Picture::User), user.name, list);
    }
    auto *box = new QWidget;
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins({});
    column->addWidget(LabelFor(tr("These %1 users will be changed:").arg(users.size()), *list));
    column->addWidget(list);
    return box;
}

QWidget *ManyUsersDialog::MakeLimits()
{
    period->setObjectName(u"period"_s);
    period->addItems({PeriodName(LimitPeriod::Day), PeriodName(LimitPeriod::Month)});
    traffic->setObjectName(u"trafficLimit"_s);
    time->setObjectName(u"timeLimit"_s);
    auto *box = new QGroupBox(tr("Fixed limits within accounting period"));
    auto *form = new QFormLayout(box);
    form->addRow(LabelFor(tr("Accounting period"), *period), period);
    form->addRow(LabelFor(tr("Traffic limit, Mb"), *traffic), traffic);
    form->addRow(LabelFor(tr("Time limit, Hr"), *time), time);
    return box;
}

void ManyUsersDialog::ShowAccess(const ModeAndLimits &access)
{
    type->Show(ChoiceFor(access.mode));
    period->setCurrentIndex(static_cast<int>(access.period.value_or(LimitPeriod::None)) - 1);
    traffic->SetNumber(access.traffic.value_or(WholeMegabytes()).value);
    time->SetNumber(access.time.value_or(WholeHours()).value);
}

void ManyUsersDialog::EnableLimits()
{
    const AccessChoice choice = type->Choice();
    const bool corporate = choice.type == AccessType::Corporate;
    period->setEnabled(corporate);
    traffic->setEnabled(corporate && choice.traffic);
    time->setEnabled(corporate && choice.time);
}

std::optional<ModeAndLimits> ManyUsersDialog::Entered()
{
    const auto mode = ModeFor(type->Choice());
    if (!mode) {
        Complain(services.prompt, tr("Please select one of the corporate type access options"));
        return {};
    }
    if (period->isEnabled() && period->currentIndex() < 0) {
        Complain(services.prompt, tr("Please choose an accounting period"));
        return {};
    }
    for (NumberField *limit : {traffic, time}) {
        if (limit->isEnabled()
            && !HoldsNumber(
                services.prompt, *limit, tr("Please enter the limit as a whole number"))) {
            return {};
        }
    }
    ModeAndLimits entered;
    entered.mode = *mode;
    if (traffic->isEnabled()) {
        entered.traffic = WholeMegabytes {*traffic->Number()};
    }
    if (time->isEnabled()) {
        entered.time = WholeHours {*time->Number()};
    }
    if (period->isEnabled()) {
        entered.period = static_cast<LimitPeriod>(period->currentIndex() + 1);
    }
    return entered;
}

std::optional<size_t> ManyUsersDialog::Write(const ModeAndLimits &entered)
{
    const auto changed = std::make_shared<size_t>(0);
    const bool isDone = Perform(services,
                                this,
                                tr("Changing the users..."),
                                SetModeAndLimitsAction(userIds, entered, changed));
    progress->setValue(isDone ? static_cast<int>(*changed) : 0);
    return isDone ? std::optional(*changed) : std::nullopt;
}

void ManyUsersDialog::accept()
{
    const auto entered = Entered();
    const auto changed = entered ? Write(*entered) : std::nullopt;
    if (!changed) {
        return;
    }
    if (*changed < userIds.size()) {
        Complain(services.prompt,
                 tr("Some of these users have been deleted meanwhile. %1 of %2 are changed.")
                     .arg(*changed)
                     .arg(userIds.size()));
    }
    QDialog::accept();
}
