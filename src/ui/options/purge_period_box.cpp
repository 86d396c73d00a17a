#include "ui/options/purge_period_box.h"

#include "admin/purge_words.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/moment_field.h"

#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

DayField *DayPicker(const char *objectName)
{
    auto *picker = new DayField(Today());
    picker->setObjectName(QString::fromLatin1(objectName));
    return picker;
}

} // namespace

PurgePeriodBox::PurgePeriodBox() : QGroupBox(tr("Save data for period of time"))
{
    auto *rows = new QFormLayout(this);
    auto *today = MakeButton<QRadioButton>(tr("Today"), "today");
    auto *lastWeek = MakeButton<QRadioButton>(tr("Last week"), "lastWeek");
    auto *lastMonth = MakeButton<QRadioButton>(tr("Last month"), "lastMonth");
    AddPeriod(*rows, PurgeChoice::Keep::Today, today);
    AddPeriod(*rows, PurgeChoice::Keep::LastWeek, lastWeek);
    AddPeriod(*rows, PurgeChoice::Keep::LastMonth, lastMonth);
    custom = MakeButton<QRadioButton>(tr("Custom"), "custom");
    rows->addRow(custom);
    since = DayPicker("since");
    until = DayPicker("until");
    auto *range = new QFormLayout;
    range->setContentsMargins(20, 0, 0, 0);
    range->addRow(LabelFor(tr("Since:"), *since), since);
    range->addRow(LabelFor(tr("Until:"), *until), until);
    rows->addRow(range);
    ShowDays();
    connect(custom, &QRadioButton::toggled, this, &PurgePeriodBox::EnablePickers);
    connect(custom, &QRadioButton::toggled, this, &PurgePeriodBox::Changed);
    if (FirstDateKept({PurgeChoice::Keep::LastMonth, false, {}, {}}, Today()) <= Today()) {
        CheckOneOf({today, lastWeek, lastMonth, custom}, lastMonth);
    }
    EnablePickers();
}

void PurgePeriodBox::AddPeriod(QFormLayout &rows, PurgeChoice::Keep keep, QRadioButton *button)
{
    auto *day = new QLabel;
    day->setObjectName(button->objectName() + u"Day"_s);
    rows.addRow(button, day);
    periods << Period {keep, button, day};
    connect(button, &QRadioButton::toggled, this, &PurgePeriodBox::Changed);
}

void PurgePeriodBox::ShowDays()
{
    for (const Period &period : periods) {
        const QDate first = FirstDateKept({period.keep, false, {}, {}}, Today());
        period.day->setText(
            (first > Today() ? tr("from %1, after today") : tr("from %1")).arg(DayInWords(first)));
        period.button->setAccessibleDescription(period.day->text());
    }
}

void PurgePeriodBox::EnablePickers()
{
    since->setEnabled(custom->isChecked());
    until->setEnabled(custom->isChecked());
}

bool PurgePeriodBox::IsChosen() const
{
    return custom->isChecked() || std::ranges::any_of(periods, [](const Period &period) {
               return period.button->isChecked();
           });
}

std::optional<PurgeChoice> PurgePeriodBox::Choice() const
{
    if (custom->isChecked()) {
        const auto first = since->Day();
        const auto last = until->Day();
        return first && last
            ? std::optional(PurgeChoice {PurgeChoice::Keep::Custom, false, *first, *last})
            : std::nullopt;
    }
    const auto chosen = std::ranges::find_if(
        periods, [](const Period &period) { return period.button->isChecked(); });
    return chosen == periods.end() ? std::nullopt
                                   : std::optional(PurgeChoice {chosen->keep, false, {}, {}});
}

bool PurgePeriodBox::IsInOrder(Prompt &prompt)
{
    if (!custom->isChecked()) {
        return true;
    }
    if (!HoldsMoment(prompt, *since) || !HoldsMoment(prompt, *until)) {
        return false;
    }
    if (since->Day() <= until->Day()) {
        return true;
    }
    prompt.Tell(tr("You entered incorrect time period. Please re-enter one of the dates"),
                Prompt::Icon::Warning);
    until->SetDay(*since->Day());
    until->setFocus();
    until->selectAll();
    return false;
}
