#include "ui/reports/schedule_dialog.h"

#include "reports/report_timer.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/moment_field.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 440; // pixels
constexpr int kTextWidth = 280; // of a text beside its label

QLabel *Shown(const QString &text, const char *objectName)
{
    auto *label = new QLabel(text);
    label->setObjectName(QLatin1StringView(objectName));
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setMinimumHeight(std::max(0, label->heightForWidth(kTextWidth)));
    return label;
}

} // namespace

ScheduleDialog::ScheduleDialog(const AppServices &appServices,
                               const ReportRun &run,
                               QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , name(run.name)
    , report(*run.report)
    , every(new QComboBox)
    , day(new QComboBox)
    , at(new TimeField(report.schedule.at))
{
    setWindowTitle(tr("Schedule of %1").arg(name));
    every->setObjectName(u"every"_s);
    day->setObjectName(u"day"_s);
    at->setObjectName(u"at"_s);
    every->addItems({tr("Never"), tr("Each day"), tr("Each week"), tr("Each month")});
    every->setCurrentIndex(static_cast<int>(report.schedule.every));
    connect(every, &QComboBox::currentIndexChanged, this, &ScheduleDialog::FillDays);
    for (auto *box : {every, day}) {
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    auto *form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(LabelFor(tr("&Make the report:"), *every), every);
    form->addRow(LabelFor(tr("&On:"), *day), day);
    form->addRow(LabelFor(tr("&At:"), *at), at);
    if (report.schedule.IsSet()) {
        form->addRow(tr("Next run:"), Shown(NextRunInWords(run), "nextRun"));
        form->addRow(tr("Last run:"), Shown(LastRunInWords(run), "lastRun"));
    }
    form->addRow(OkAndCancel(*this));
    FillDays();
    day->setCurrentIndex(std::min(report.schedule.day, day->count()) - 1);
    resize(kWidth, sizeHint().height());
}

void ScheduleDialog::FillDays()
{
    using Every = ReportSchedule::Every;
    const auto chosen = static_cast<Every>(every->currentIndex());
    day->clear();
    day->setEnabled(chosen == Every::Week || chosen == Every::Month);
    at->setEnabled(chosen != Every::Never);
    const int count = chosen == Every::Week ? 7
        : chosen == Every::Month            ? ReportSchedule::kLastDayOfMonth
                                            : 0;
    for (int number = 1; number <= count; ++number) {
        day->addItem(chosen == Every::Week ? QLocale().standaloneDayName(number)
                                           : tr("day %1").arg(number));
    }
}

void ScheduleDialog::accept()
{
    const auto chosen = static_cast<ReportSchedule::Every>(every->currentIndex());
    if (chosen != ReportSchedule::Every::Never && !HoldsMoment(services.prompt, *at)) {
        return;
    }
    const ReportSchedule wanted {.every = chosen,
                                 .day = std::max(1, day->currentIndex() + 1),
                                 .at = at->Time().value_or(report.schedule.at)};
    const SavedReports saved(services.settings);
    auto present =
        saved.Read(name); // others may have changed it; only the schedule is this window's
    if (!present) {
        services.prompt.Tell(TextOf(present.error()), Prompt::Icon::Error);
        return;
    }
    if (present->schedule != report.schedule && present->schedule != wanted
        && !services.prompt.Ask(
            tr("The schedule was changed meanwhile: %1.\nDo you want to replace it?")
                .arg(InWords(present->schedule)))) {
        return;
    }
    present->schedule = wanted;
    if (const auto written = saved.Write(name, *present); !written) {
        services.prompt.Tell(TextOf(written.error()), Prompt::Icon::Error);
        return;
    }
    QString problem;
    if (!AskForTimer(name, services.settings.Folder(), problem)) {
        services.prompt.Tell(tr("The schedule is saved, but its timer is not set up.") + u"\n\n"
                                 + problem,
                             Prompt::Icon::Warning);
    }
    Dialog::accept();
}
