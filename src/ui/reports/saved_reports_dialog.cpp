#include "ui/reports/saved_reports_dialog.h"

#include "reports/catalogue.h"
#include "reports/report_timer.h"
#include "reports/wording.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/empty_note.h"
#include "ui/common/look_lock.h"
#include "ui/common/window_memory.h"
#include "ui/reports/save_report_dialog.h"
#include "ui/reports/schedule_dialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QStringList Cells(const ReportRun &run)
{
    if (!run.report) {
        return {run.name, {}, {}, LastRunInWords(run), {}, {}};
    }
    return {run.name,
            InWords(run.report->schedule),
            NextRunInWords(run),
            LastRunInWords(run),
            TitleOf(EntryOf(run.report->row)).trimmed(),
            PeriodRuleInWords(run.report->period)};
}

} // namespace

SavedReportsDialog::SavedReportsDialog(const AppServices &appServices,
                                       const ReportChoice &present,
                                       QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , choice(present)
    , list(new QTreeWidget)
    , details(new QLabel)
{
    setWindowTitle(tr("Saved reports"));
    SetNames(*list, u"saved"_s, tr("Saved reports"));
    list->setHeaderLabels(
        {tr("Name"), tr("Schedule"), tr("Next run"), tr("Last run"), tr("Report"), tr("Period")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    new EmptyNote(*list,
                  tr("No report is saved yet. Choose a report, its period and its users in "
                     "the window behind, and press \"Save selection as...\"."));
    details->setObjectName(u"details"_s);
    details->setWordWrap(true);
    details->setTextFormat(Qt::PlainText);
    details->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    details->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    details->setMinimumHeight(4 * fontMetrics().lineSpacing());
    open = Command(tr("&Open"), "open", &SavedReportsDialog::Open);
    auto *save =
        Command(tr("Save se&lection as..."), "saveSelection", &SavedReportsDialog::SaveChoice);
    change = Command(tr("C&hange..."), "change", &SavedReportsDialog::Change);
    schedule = Command(tr("&Schedule..."), "schedule", &SavedReportsDialog::Schedule);
    remove = Command(tr("&Delete"), "delete", &SavedReportsDialog::Delete);
    auto *close = MakeButton<QPushButton>(tr("Close"), "close");
    close->setAutoDefault(false);
    KeepForLooking(*open);
    KeepForLooking(*close);
    connect(close, &QPushButton::clicked, this, &SavedReportsDialog::reject);
    open->setDefault(true);
    auto *buttons = new QVBoxLayout;
    for (auto *button : {open, save, change, schedule, remove}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    buttons->addWidget(close);
    auto *row = new QHBoxLayout;
    row->addWidget(list, 1);
    row->addLayout(buttons);
    auto *column = new QVBoxLayout(this);
    column->addLayout(row, 1);
    column->addWidget(details);
    connect(list, &QTreeWidget::itemSelectionChanged, this, &SavedReportsDialog::ShowChosen);
    connect(list, &QTreeWidget::itemDoubleClicked, this, &SavedReportsDialog::Open);
    RememberSize(*this, u"savedReports"_s, {980, 420});
    Fill({});
}

QPushButton *SavedReportsDialog::Command(const QString &text,
                                         const char *objectName,
                                         void (SavedReportsDialog::*act)())
{
    auto *button = MakeButton<QPushButton>(text, objectName);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

void SavedReportsDialog::Fill(const QString &chosenName)
{
    auto read = ReadRuns(services.settings, services.control);
    list->clear();
    runs = read ? std::move(*read) : std::vector<ReportRun>();
    if (!read) {
        services.prompt.Tell(TextOf(read.error()), Prompt::Icon::Error);
    }
    for (const ReportRun &run : runs) {
        auto *item = new QTreeWidgetItem(list, Cells(run));
        for (int place = 0; place < item->columnCount(); ++place) {
            item->setToolTip(place, item->text(place));
        }
        if (HasTrouble(run)) {
            item->setIcon(0, style()->standardIcon(QStyle::SP_MessageBoxWarning));
        }
        if (run.name == chosenName) {
            list->setCurrentItem(item);
        }
    }
    if (list->currentItem() == nullptr && list->topLevelItemCount() > 0) {
        list->setCurrentItem(list->topLevelItem(0));
    }
    for (int place = 0; place < list->columnCount(); ++place) {
        list->resizeColumnToContents(place);
    }
    ShowChosen();
}

const ReportRun *SavedReportsDialog::Chosen() const
{
    const auto chosen = list->selectedItems();
    return chosen.isEmpty()
        ? nullptr
        : &runs[static_cast<size_t>(list->indexOfTopLevelItem(chosen.constFirst()))];
}

void SavedReportsDialog::ShowChosen()
{
    const ReportRun *run = Chosen();
    const bool isWhole = run != nullptr && run->report;
    for (auto *button : {open, change, schedule}) {
        button->setEnabled(isWhole);
    }
    remove->setEnabled(run != nullptr);
    if (run == nullptr) {
        details->clear();
        return;
    }
    if (!run->report) {
        details->setText(TextOf(run->report.error()));
        return;
    }
    QStringList lines {tr("File: %1").arg(run->report->output)};
    if (!run->report->mail.isEmpty()) {
        lines += tr("Sent to: %1").arg(run->report->mail);
    }
    if (const auto last = LastRunOf(*run); last && last->result == TimerState::Result::Failed) {
        lines +=
            tr("The last run failed. What it said: journalctl -u '%1'").arg(ServiceUnit(run->name));
    } else if (run->timer && !run->timer->isThere) {
        lines += tr("The timer is not set up. As root: tollbrook-report --schedule \"%1\"")
                     .arg(run->name);
    }
    details->setText(lines.join(u'\n'));
}

void SavedReportsDialog::SaveChoice()
{
    if (!choice.report) {
        Complain(services.prompt,
                 tr("Select a report in the window behind; it is what will be saved."));
        return;
    }
    SaveReportDialog dialog(services, *choice.report, choice.filter, {}, this);
    if (dialog.exec() == QDialog::Accepted) {
        Fill(dialog.Name());
    }
}

// Under another name it is another report.
void SavedReportsDialog::Change()
{
    const ReportRun *run = Chosen();
    if (run == nullptr || !run->report) {
        return;
    }
    const SavedReport &report = *run->report;
    const bool isNarrowed =
        report.users.effect != FilterEffect::None || report.groups.effect != FilterEffect::None;
    SaveReportDialog dialog(services,
                            report,
                            isNarrowed ? tr("the users and groups that were chosen") : QString(),
                            run->name,
                            this);
    if (dialog.exec() == QDialog::Accepted) {
        Fill(dialog.Name());
    }
}

void SavedReportsDialog::Schedule()
{
    const ReportRun *run = Chosen();
    if (run == nullptr || !run->report) {
        return;
    }
    ScheduleDialog dialog(services, *run, this);
    if (dialog.exec() == QDialog::Accepted) {
        Fill(QString(run->name));
    }
}

void SavedReportsDialog::Delete()
{
    const ReportRun *run = Chosen();
    if (run == nullptr
        || !services.prompt.AskToDestroy(tr("Do you want to delete the saved report?"),
                                         run->name)) {
        return;
    }
    const SavedReports saved(services.settings);
    const auto present = saved.Read(run->name); // it may have been given a schedule meanwhile
    const bool hasTimer =
        NameProblem(run->name).isEmpty() && (!present || present->schedule.IsSet());
    if (const auto removed = saved.Remove(run->name); !removed) {
        services.prompt.Tell(TextOf(removed.error()), Prompt::Icon::Error);
        return;
    }
    QString problem;
    if (hasTimer && !AskForTimer(run->name, services.settings.Folder(), problem)) {
        services.prompt.Tell(tr("The report is deleted, but its timer may still be there.")
                                 + u"\n\n" + problem,
                             Prompt::Icon::Warning);
    }
    Fill({});
}

void SavedReportsDialog::Open()
{
    if (const ReportRun *run = Chosen(); run != nullptr && run->report) {
        opened = *run->report;
        accept();
    }
}
