#include "ui/props/many_users_dialog.h"

#include "access/limits.h"
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

#include <utility>

using namespace Qt::StringLiterals;

ManyUsersDialog::ManyUsersDialog(const AppServices &appServices,
                                 std::vector<UserId> users,
                                 const QStringList &names,
                                 QWidget *parent)
    : QDialog(parent)
    , services(appServices)
    , userIds(std::move(users))
    , type(new AccessTypeBox(AccessTypeBox::Options::TrafficAndTime))
    , period(new QComboBox)
    , traffic(new WholeNumberField)
    , time(new WholeNumberField)
    , progress(new QProgressBar)
{
    setWindowTitle(u"Access properties for multiple users"_s);
    SetNames(*progress, u"progress"_s, u"Users changed"_s);
    progress->setRange(0, static_cast<int>(userIds.size()));
    progress->setValue(0);
    progress->setFormat(u"%v of %m"_s);
    auto *column = new QVBoxLayout(this);
    column->addWidget(MakeNames(names));
    column->addWidget(type);
    column->addWidget(MakeLimits());
    column->addWidget(progress);
    column->addWidget(OkAndCancel(*this));
    connect(type, &AccessTypeBox::Changed, this, &ManyUsersDialog::EnableLimits);
    ShowFirst();
    EnableLimits();
}

QWidget *ManyUsersDialog::MakeNames(const QStringList &names)
{
    auto *list = new QListWidget;
    list->setObjectName(u"users"_s);
    list->setUniformItemSizes(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    for (const QString &name : names) {
        new QListWidgetItem(IconOf(Picture::User), name, list);
    }
    auto *box = new QWidget;
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins({});
    column->addWidget(LabelFor(u"These %1 users will be changed:"_s.arg(names.size()), *list));
    column->addWidget(list);
    return box;
}

QWidget *ManyUsersDialog::MakeLimits()
{
    period->setObjectName(u"period"_s);
    period->addItems({PeriodName(LimitPeriod::Day), PeriodName(LimitPeriod::Month)});
    traffic->setObjectName(u"trafficLimit"_s);
    time->setObjectName(u"timeLimit"_s);
    auto *box = new QGroupBox(u"Fixed limits within accounting period"_s);
    auto *form = new QFormLayout(box);
    form->addRow(LabelFor(u"Accounting period"_s, *period), period);
    form->addRow(LabelFor(u"Traffic limit, Mb"_s, *traffic), traffic);
    form->addRow(LabelFor(u"Time limit, Hr"_s, *time), time);
    return box;
}

void ManyUsersDialog::ShowFirst()
{
    const ModeAndLimits first = ReadModeAndLimits(userIds.front());
    type->Show(ChoiceFor(first.mode));
    period->setCurrentIndex(period->findText(PeriodName(first.period)));
    traffic->SetNumber(first.traffic.value);
    time->SetNumber(first.time.value);
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
        Complain(services.prompt, u"Please select one of the corporate type access options"_s);
        return {};
    }
    if (period->isEnabled() && period->currentIndex() < 0) {
        Complain(services.prompt, u"Please choose an accounting period"_s);
        return {};
    }
    if ((traffic->isEnabled() && !traffic->Number()) || (time->isEnabled() && !time->Number())) {
        Complain(services.prompt, u"Please enter the limit as a whole number"_s);
        return {};
    }
    return ModeAndLimits {.mode = *mode,
                          .traffic = WholeMegabytes {traffic->Number().value_or(0)},
                          .time = WholeHours {time->Number().value_or(0)},
                          .period = static_cast<LimitPeriod>(period->currentIndex() + 1)};
}

void ManyUsersDialog::LeaveOutGone()
{
    const QStringList there = NamesOfUsers(userIds);
    if (there.size() < progress->maximum()) {
        Complain(services.prompt,
                 u"Some of these users have been deleted meanwhile. %1 of %2 are changed."_s
                     .arg(there.size())
                     .arg(progress->maximum()));
    }
}

void ManyUsersDialog::accept()
{
    const auto entered = Entered();
    if (!entered) {
        return;
    }
    LeaveOutGone();
    SetModeAndLimits(userIds, *entered, [this](int done) {
        progress->setValue(done);
        progress->repaint();
    });
    QDialog::accept();
}
