#include "ui/props/time_range_dialog.h"

#include "access/time_ranges.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/moment_field.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kDays = 7;

TimeField *TimePicker(const char *objectName, QTime time)
{
    auto *field = new TimeField(time);
    field->setObjectName(QLatin1String(objectName));
    return field;
}

} // namespace

TimeRangeDialog::TimeRangeDialog(Prompt &messages, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , day(new QComboBox)
    , since(TimePicker("since", {8, 0}))
    , until(TimePicker("until", {17, 0}))
{
    setWindowTitle(tr("Add time range"));
    day->setObjectName(u"day"_s);
    for (quint32 number = 1; number <= kDays; ++number) {
        day->addItem(DayName(number));
    }
    day->setCurrentIndex(-1);
    auto *days = new QFormLayout;
    days->addRow(LabelFor(tr("Day"), *day), day);
    auto *box = new QGroupBox(tr("Specify time range"));
    auto *times = new QFormLayout(box);
    times->addRow(LabelFor(tr("Since time"), *since), since);
    times->addRow(LabelFor(tr("Until time"), *until), until);
    auto *column = new QVBoxLayout(this);
    column->addLayout(days);
    column->addWidget(box);
    column->addWidget(OkAndCancel(*this));
}

void TimeRangeDialog::accept()
{
    if (!HoldsMoment(prompt, *since) || !HoldsMoment(prompt, *until)) {
        return;
    }
    if (const auto problem = WhyNoRange(Day(), Since(), Until())) {
        Complain(prompt, *problem);
    } else {
        QDialog::accept();
    }
}

quint32 TimeRangeDialog::Day() const
{
    return static_cast<quint32>(day->currentIndex() + 1);
}

QTime TimeRangeDialog::Since() const
{
    return since->Time().value_or(QTime());
}

QTime TimeRangeDialog::Until() const
{
    return until->Time().value_or(QTime());
}
