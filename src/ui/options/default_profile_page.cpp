#include "ui/options/default_profile_page.h"

#include "access/access_mode.h"
#include "db/value_codes.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/number_field.h"
#include "ui/props/access_type_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// As an entry of the list keeps it.
quint32 Code(LimitPeriod period)
{
    return static_cast<quint32>(period);
}

// What the field shows: blank while the store has no such value, or one below 0.
std::optional<quint32> Shown(std::optional<qint32> limit)
{
    return limit && *limit >= 0 ? std::optional(static_cast<quint32>(*limit)) : std::nullopt;
}

void Show(NumberField &field, std::optional<qint32> limit)
{
    field.clear();
    if (const auto number = Shown(limit)) {
        field.SetNumber(*number);
    }
}

// A limit that is shown as it was stays what it is.
void Take(std::optional<qint32> &limit, const NumberField &field)
{
    const auto typed = field.Number();
    if (typed != Shown(limit)) {
        limit = typed ? std::optional(static_cast<qint32>(*typed)) : std::nullopt;
    }
}

} // namespace

DefaultProfilePage::DefaultProfilePage(Prompt &messages, Options &edited)
    : prompt(messages)
    , options(edited)
    , type(new AccessTypeBox(AccessTypeBox::Options::TrafficAndTime))
    , period(new QComboBox)
    , trafficLimit(new NumberField)
    , timeLimit(new NumberField)
    , blocked(MakeButton<QCheckBox>(tr("Block imminently"), "blocked"))
{
    type->setTitle(tr("Access control type"));
    period->setObjectName(u"period"_s);
    period->addItem(tr("Day"), Code(LimitPeriod::Day));
    period->addItem(tr("Month"), Code(LimitPeriod::Month));
    trafficLimit->setObjectName(u"trafficLimit"_s);
    timeLimit->setObjectName(u"timeLimit"_s);
    auto *form = new QFormLayout;
    form->addRow(LabelFor(tr("Accounting period"), *period), period);
    form->addRow(LabelFor(tr("Traffic limit. Mb"), *trafficLimit), trafficLimit);
    form->addRow(LabelFor(tr("Time limit, hr"), *timeLimit), timeLimit);
    form->addRow(blocked);
    auto *column = new QVBoxLayout(this);
    column->addWidget(type);
    column->addLayout(form);
    column->addStretch();
}

QString DefaultProfilePage::Title() const
{
    return tr("Default user profile");
}

void DefaultProfilePage::Load()
{
    const DefaultProfile &profile = options.profile;
    type->Show(ChoiceFor(profile.mode));
    period->setCurrentIndex(period->findData(Code(profile.period)));
    Show(*trafficLimit, profile.trafficLimit);
    Show(*timeLimit, profile.timeLimit);
    blocked->setChecked(profile.blocked);
}

bool DefaultProfilePage::Leave()
{
    if (!ModeFor(type->Choice())) {
        Complain(prompt, tr("Please select one of the corporate type access options"));
        return false;
    }
    return HoldsNumberIfAny(prompt, *trafficLimit) && HoldsNumberIfAny(prompt, *timeLimit);
}

void DefaultProfilePage::Collect()
{
    DefaultProfile &profile = options.profile;
    if (type->Choice() != ChoiceFor(profile.mode)) { // a code of no meaning stays while untouched
        profile.mode = ModeFor(type->Choice()).value_or(AccountingMode::NoControl);
    }
    if (period->currentIndex() >= 0) {
        profile.period = static_cast<LimitPeriod>(period->currentData().toUInt());
    }
    Take(profile.trafficLimit, *trafficLimit);
    Take(profile.timeLimit, *timeLimit);
    profile.blocked = blocked->isChecked();
}
