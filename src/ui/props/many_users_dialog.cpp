#include "ui/props/many_users_dialog.h"

#include "access/limits.h"
#include "access/user_list.h"
#include "app/perform.h"
#include "base/names_line.h"
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
#include <QLocale>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// More than the users list holds were not chosen row by row: nobody reads all their names.
constexpr size_t kMostListed = kUserListCapacity;
constexpr size_t kNamedOfMany = 20; // some of whom may be gone

std::vector<UserId> IdsOf(const std::vector<NamedUser> &users)
{
    std::vector<UserId> userIds(users.size());
    std::ranges::transform(users, userIds.begin(), &NamedUser::userId);
    return userIds;
}

} // namespace

Result<std::optional<UsersAndAccess>> ReadUsersAndAccess(const std::vector<UserId> &userIds)
{
    const bool many = userIds.size() > kMostListed;
    const auto end = many ? userIds.begin() + kNamedOfMany : userIds.end();
    auto named = NamesOfUsers({userIds.begin(), end});
    if (!named) {
        return tl::unexpected(std::move(named.error()));
    }
    for (const NamedUser &user : *named) {
        const auto access = ReadModeAndLimits(user.userId);
        if (!access) {
            return tl::unexpected(access.error());
        }
        if (*access) {
            return UsersAndAccess {many ? userIds : IdsOf(*named), *std::move(named), **access};
        }
    }
    return std::nullopt;
}

ManyUsersDialog::ManyUsersDialog(const AppServices &appServices,
                                 const UsersAndAccess &opened,
                                 QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , userIds(opened.userIds)
    , type(new AccessTypeBox(AccessTypeBox::Options::TrafficAndTime))
    , period(new QComboBox)
    , traffic(new NumberField)
    , time(new NumberField)
    , progress(new QProgressBar)
{
    setWindowTitle(tr("Access properties for multiple users"));
    SetNames(*progress, u"progress"_s, tr("Users changed"));
    progress->setRange(0, static_cast<int>(userIds.size()));
    progress->setValue(0);
    progress->setFormat(tr("%v of %m"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(MakeNames(opened.named));
    column->addWidget(type);
    column->addWidget(MakeLimits());
    column->addWidget(progress);
    column->addWidget(OkAndCancel(*this));
    connect(type, &AccessTypeBox::Changed, this, &ManyUsersDialog::EnableLimits);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60); // the title bar's buttons aside
    ShowAccess(opened.access);
    EnableLimits();
}

QWidget *ManyUsersDialog::MakeNames(const std::vector<NamedUser> &named)
{
    if (named.size() < userIds.size()) {
        return MakeNamesLine(named);
    }
    auto *list = new QListWidget;
    list->setObjectName(u"users"_s);
    list->setUniformItemSizes(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    for (const NamedUser &user : named) {
        new QListWidgetItem(IconOf(Picture::User), user.name, list);
    }
    auto *box = new QWidget;
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins({});
    column->addWidget(LabelFor(tr("These %1 users will be changed:").arg(named.size()), *list));
    column->addWidget(list);
    return box;
}

QWidget *ManyUsersDialog::MakeNamesLine(const std::vector<NamedUser> &named)
{
    QStringList names;
    for (const NamedUser &user : named) {
        names << user.name;
    }
    const auto count = static_cast<qsizetype>(userIds.size());
    auto *line = new QLabel(tr("These %1 users will be changed:").arg(QLocale().toString(count))
                            + u'\n' + NamesLine(names, count));
    line->setObjectName(u"manyUsers"_s);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    return line;
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
