#include "ui/reports/reports_dialog.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "reports/connection_text.h"
#include "reports/report_runs.h"
#include "reports/wording.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/moment_field.h"
#include "ui/common/window_memory.h"
#include "ui/reports/crystal_ctrl.h"
#include "ui/reports/page_setup_dialog.h"
#include "ui/reports/report_viewer.h"
#include "ui/reports/saved_reports_dialog.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kControlId = 1109;

DayField *DayPicker(const char *objectName)
{
    auto *picker = new DayField(Today());
    picker->setObjectName(QLatin1StringView(objectName));
    return picker;
}

} // namespace

ReportsDialog::ReportsDialog(const AppServices &appServices, QWidget *parent)
    : Dialog(parent)
    , services(appServices)
{
    setWindowTitle(tr("Reports"));
    StaysUnlocked();
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    control = new CCrystalCtrl(this);
    control->Create(services.prompt, tr("Report"), {0, 0, 640, 480}, this, kControlId);
    auto *split = new QSplitter;
    split->setObjectName(u"split"_s);
    split->setChildrenCollapsible(false);
    split->addWidget(BuildChoices());
    split->addWidget(control);
    split->setStretchFactor(1, 1);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(split);
    CheckOneOf({allAvailable, today, lastWeek, lastMonth, custom}, allAvailable);
    EnablePickers();
    SelectFirst();
    ShowTroubleOfSaved();
    RememberParts(*split, u"reports"_s);
    RememberSize(*this, u"reports"_s, {1120, 760});
}

ReportViewer &ReportsDialog::Viewer() const
{
    return *control->Control();
}

QWidget *ReportsDialog::BuildChoices()
{
    catalogue = new QListWidget;
    SetNames(*catalogue, u"catalogue"_s, tr("Reports"));
    for (int row = 0; row < kListedCount; ++row) {
        catalogue->addItem(TitleOf(EntryOf(row)));
    }
    description = new QLabel;
    description->setObjectName(u"description"_s);
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    description->setMinimumHeight(5 * fontMetrics().lineSpacing());
    connect(catalogue, &QListWidget::currentRowChanged, this, &ReportsDialog::ShowSelected);
    connect(catalogue, &QListWidget::itemSelectionChanged, this, &ReportsDialog::KeepSelected);
    // A longer description takes its room from the list.
    connect(catalogue->verticalScrollBar(), &QScrollBar::rangeChanged, catalogue, [this] {
        catalogue->scrollTo(catalogue->currentIndex());
    });
    // Return presses the default button, which does the same.
    connect(catalogue, &QListWidget::itemDoubleClicked, this, &ReportsDialog::Generate);
    auto *choices = new QWidget;
    auto *column = new QVBoxLayout(choices);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(catalogue, 1);
    column->addWidget(description);
    column->addWidget(BuildPeriod());
    column->addWidget(BuildFilters());
    column->addWidget(BuildButtons());
    return choices;
}

QWidget *ReportsDialog::BuildPeriod()
{
    auto *box = new QGroupBox(tr("Use data to report on:"));
    allAvailable = MakeButton<QRadioButton>(tr("All available"), "allAvailable");
    today = MakeButton<QRadioButton>(tr("Today"), "today");
    lastWeek = MakeButton<QRadioButton>(tr("Last week"), "lastWeek");
    lastMonth = MakeButton<QRadioButton>(tr("Last month"), "lastMonth");
    custom = MakeButton<QRadioButton>(tr("Custom "), "custom");
    since = DayPicker("since");
    until = DayPicker("until");
    auto *column = new QVBoxLayout(box);
    auto *choices = new QGridLayout; // two beside each other, for screens of little height
    column->addLayout(choices);
    for (auto *choice : {allAvailable, today, lastWeek, lastMonth, custom}) {
        choices->addWidget(choice, choices->count() / 2, choices->count() % 2);
        connect(choice, &QRadioButton::toggled, this, &ReportsDialog::EnablePickers);
    }
    auto *customBox = new QGroupBox(tr("Custom period"));
    auto *days = new QFormLayout(customBox);
    days->addRow(LabelFor(tr("Since"), *since), since);
    days->addRow(LabelFor(tr("Until"), *until), until);
    column->addWidget(customBox);
    return box;
}

QWidget *ReportsDialog::BuildFilters()
{
    users = MakeButton<QPushButton>(tr("Users to report on..."), "users");
    groups = MakeButton<QPushButton>(tr("Groups to report on..."), "groups");
    connect(users, &QPushButton::clicked, this, [this] {
        Choose(ReportFilterDialog::Of::Users, OfferedUsers, userFilter);
    });
    connect(groups, &QPushButton::clicked, this, [this] {
        Choose(ReportFilterDialog::Of::Groups, OfferedGroups, groupFilter);
    });
    filterNote = new QLabel;
    filterNote->setObjectName(u"filterNote"_s);
    filterNote->setWordWrap(true);
    filterNote->setTextFormat(Qt::PlainText); // names are no mark-up
    filterNote->setSizePolicy(QSizePolicy::Ignored,
                              QSizePolicy::Preferred); // nor widen the choices
    filterNote->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    filterNoteArea = new QScrollArea;
    SetNames(*filterNoteArea, u"filterNoteArea"_s, tr("Filter"));
    filterNoteArea->setFrameShape(QFrame::NoFrame);
    filterNoteArea->setWidgetResizable(true);
    filterNoteArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    filterNoteArea->setWidget(filterNote);
    filterNoteArea->setFixedHeight(3 * fontMetrics().lineSpacing());
    filterNoteArea->hide();
    auto *box = new QWidget;
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(users);
    column->addWidget(groups);
    column->addWidget(filterNoteArea);
    return box;
}

QWidget *ReportsDialog::BuildButtons()
{
    generate = MakeButton<QPushButton>(tr("Generate report"), "generate");
    auto *help = MakeButton<QPushButton>(tr("Help"), "help");
    auto *cancel = MakeButton<QPushButton>(tr("Cancel"), "cancel");
    auto *saved = MakeButton<QPushButton>(tr("Saved reports..."), "savedReports");
    connect(saved, &QPushButton::clicked, this, &ReportsDialog::ShowSaved);
    for (auto *button : {users, groups, saved, help, cancel}) {
        button->setAutoDefault(false);
    }
    generate->setDefault(true);
    connect(generate, &QPushButton::clicked, this, &ReportsDialog::Generate);
    connect(help, &QPushButton::clicked, this, &ReportsDialog::ShowHelp);
    connect(cancel, &QPushButton::clicked, this, &ReportsDialog::reject);
    connect(&Viewer(), &ReportViewer::Ready, this, [this] { generate->setEnabled(true); });
    connect(&Viewer(), &ReportViewer::RowOpened, this, &ReportsDialog::OpenDetail);
    connect(&Viewer(), &ReportViewer::WentBack, this, [this] {
        made = formers.back();
        formers.pop_back();
    });
    connect(&Viewer(), &ReportViewer::PageSetupAsked, this, &ReportsDialog::SetUpPages);
    savedNote = new QLabel;
    savedNote->setObjectName(u"savedNote"_s);
    savedNote->setWordWrap(true);
    savedNote->setTextFormat(Qt::PlainText);
    savedNote->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *box = new QWidget;
    auto *buttons = new QGridLayout(box);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addWidget(savedNote, 0, 0, 1, 2);
    buttons->addWidget(generate, 1, 0);
    buttons->addWidget(saved, 1, 1);
    buttons->addWidget(cancel, 2, 0);
    buttons->addWidget(help, 2, 1);
    return box;
}

void ReportsDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && Viewer().IsBusy()) {
        Viewer().Cancel();
        return;
    }
    Dialog::keyPressEvent(event);
}

// Kept: no row is selected while the first one's description is shown.
void ReportsDialog::SelectFirst()
{
    const QSignalBlocker quiet(catalogue);
    catalogue->setCurrentItem(nullptr);
    description->setText(DescriptionOf(ReportCatalogue().front()));
}

void ReportsDialog::ShowSelected(int row)
{
    if (row < 0) {
        return;
    }
    description->setText(DescriptionOf(EntryOf(row)));
    const FilterUse use = FiltersOf(row);
    users->setEnabled(use.users);
    groups->setEnabled(use.groups);
    ShowFilterNote();
}

// A click with Ctrl would take the selection back, while the viewer still holds the row's layout.
void ReportsDialog::KeepSelected()
{
    if (catalogue->selectedItems().isEmpty()) {
        catalogue->setCurrentRow(catalogue->currentRow());
    }
}

void ReportsDialog::EnablePickers()
{
    since->setEnabled(custom->isChecked());
    until->setEnabled(custom->isChecked());
    ShowFilterNote();
}

void ReportsDialog::ShowFilterNote()
{
    const QString words = FilterWords();
    const bool unused =
        allAvailable->isChecked() && !words.isEmpty() && SelectedRow() != kStatementRow;
    filterNoteArea->setVisible(!words.isEmpty());
    filterNote->setText(unused ? words + u" - filters apply only with a period." : words);
}

// Without the names a filter would be lost, and the report be made on everybody.
template <typename IdType>
void ReportsDialog::Choose(ReportFilterDialog::Of what,
                           Result<std::vector<Named<IdType>>> (*offers)(),
                           ChosenFilter<IdType> &chosen)
{
    const bool ofUsers = what == ReportFilterDialog::Of::Users;
    const QString reading = ofUsers ? tr("Reading the users...") : tr("Reading the groups...");
    const auto offered = Await(services, this, reading, offers);
    if (!offered) {
        TellUnread(services,
                   ofUsers ? tr("The users cannot be read.") : tr("The groups cannot be read."),
                   offered.error());
        return;
    }
    ReportFilterDialog dialog(what, this);
    dialog.Offer(*offered, chosen.lists);
    if (dialog.exec() == QDialog::Accepted) {
        chosen.lists = dialog.Filter<IdType>();
        chosen.kept = Kept(chosen.lists);
        chosen.scope = ScopeOf(chosen.lists, *offered);
        ShowFilterNote();
    }
}

// Empty without a filter.
QString ReportsDialog::FilterWords() const
{
    return FilterWordsOf({.userScope = userFilter.scope, .groupScope = groupFilter.scope});
}

PeriodChoice ReportsDialog::Choice() const
{
    const QRadioButton *const choices[] = {allAvailable, today, lastWeek, lastMonth, custom};
    for (int place = 0; place < 5; ++place) {
        if (choices[place]->isChecked()) {
            return static_cast<PeriodChoice>(place);
        }
    }
    return PeriodChoice::All;
}

ReportPeriod ReportsDialog::Period() const
{
    const PeriodChoice choice = Choice();
    return choice == PeriodChoice::Custom
        ? ReportPeriod {choice, DayOf(*since->Day()), DayOf(*until->Day())}
        : PeriodUpTo(Today(), choice);
}

bool ReportsDialog::IsPeriodInOrder()
{
    if (!custom->isChecked()) {
        return true;
    }
    if (!HoldsMoment(services.prompt, *since) || !HoldsMoment(services.prompt, *until)) {
        return false;
    }
    if (since->Day() <= until->Day()) {
        return true;
    }
    services.prompt.Tell(tr("You entered incorrect time period. Please re-enter one of the dates"));
    until->SetDay(*since->Day());
    until->setFocus();
    return false;
}

// The layouts are found by the settings: without them a report would seem to have none.
bool ReportsDialog::AreSettingsReadable()
{
    const auto problem = services.settings.Problem(values::kPath.key);
    if (problem) {
        services.prompt.Tell(TextOf(*problem), Prompt::Icon::Error);
    }
    return !problem;
}

// The list makes its first row the current one when it gets the focus, yet selects none.
int ReportsDialog::SelectedRow() const
{
    return catalogue->selectionModel()->hasSelection() ? catalogue->currentRow() : -1;
}

void ReportsDialog::Generate()
{
    if (!IsPeriodInOrder() || Viewer().IsBusy() || !AreSettingsReadable()) {
        return;
    }
    const int row = SelectedRow();
    const ReportPeriod period = Period();
    const QString userClause = KeptUsersClause(userFilter.kept);
    const QString groupClause = KeptGroupsClause(groupFilter.kept);
    const bool ofStatements = row == kStatementRow;
    const bool isNarrowed = ofStatements || period.choice != PeriodChoice::All;
    const QString query =
        row < 0 || ofStatements ? QString() : QueryText(row, period, userClause, groupClause);
    made = {row, period, userFilter.kept, groupFilter.kept, userFilter.scope, groupFilter.scope};
    made = isNarrowed ? made : ReportSelection {row, period};
    formers.clear();
    Viewer().ForgetFormer();
    Viewer().SetOpensRows(HasDetails(row));
    Viewer().SetSubject(SubjectOf(services.settings, period, FilterWordsOf(made)));
    Viewer().SetStatements(ofStatements ? std::optional(StatementFilter {userClause, groupClause})
                                        : std::nullopt);
    Drive(row, query);
    if (generate->hasFocus()) {
        catalogue->setFocus(); // else it goes on to "Help"; Return generates here too
    }
    generate->setEnabled(!Viewer().IsBusy());
}

// On the user or group of a line; the choices of this window stay as they are.
void ReportsDialog::OpenDetail(const CellRow &line)
{
    const auto table = Viewer().Table();
    const auto detail = Await(
        services, this, tr("Reading the users..."), [summary = made, layout = table->layout, line] {
            return DetailBehind(summary, layout, line);
        });
    if (!detail) {
        TellUnread(services, tr("The users and groups cannot be read."), detail.error());
        return;
    }
    if (!*detail) {
        services.prompt.Tell(tr("The user or group of this line does not exist any more."));
        return;
    }
    Viewer().KeepFormer();
    formers.push_back(made);
    made = **detail;
    Viewer().SetOpensRows(HasDetails(made.row));
    Viewer().SetSubject(SubjectOf(services.settings, made.period, FilterWordsOf(made)));
    Viewer().SetStatements(std::nullopt);
    Drive(made.row, QueryOf(made));
    generate->setEnabled(!Viewer().IsBusy());
}

// The control's properties in their fixed order, the run last.
void ReportsDialog::Drive(int row, const QString &query)
{
    control->SetConnection(ReportConnectionText(ReportsDataSource(services.settings)).toUtf8());
    control->SetOutputMode(2);
    if (row >= 0 && row != kStatementRow) { // which has no layout file
        const QString folder = services.settings.ReadText(values::kPath).value_or(QString());
        control->SetLayoutFile(LayoutPath(folder, row).toUtf8());
    }
    control->SetOption24(0);
    control->SetOption125(true);
    control->SetOption123(true);
    control->SetOption120(true);
    control->SetQuery({});
    if (!query.isEmpty()) {
        control->SetQuery(query.toUtf8());
    }
    control->SetAction(1);
}

void ReportsDialog::SetUpPages()
{
    if (!AreSettingsReadable()) {
        return;
    }
    PageSetupDialog dialog(services, this);
    if (dialog.exec() == QDialog::Accepted) {
        Viewer().RunAgain(ReadPageSetup(services.settings));
        generate->setEnabled(!Viewer().IsBusy());
    }
}

// What is chosen at present, as it would be saved; nothing while no report is selected.
std::optional<SavedReport> ReportsDialog::Present() const
{
    if (SelectedRow() < 0) {
        return std::nullopt;
    }
    SavedReport report {.row = SelectedRow(), .period = NameOf(Period())};
    if (Choice() != PeriodChoice::All || report.row == kStatementRow) {
        report.users = userFilter.kept;
        report.groups = groupFilter.kept;
    }
    return report;
}

void ReportsDialog::ShowSaved()
{
    if (!IsPeriodInOrder()) {
        return;
    }
    const auto present = Present();
    const bool isNarrowed = present
        && (present->users.effect != FilterEffect::None
            || present->groups.effect != FilterEffect::None);
    SavedReportsDialog dialog(services, {present, isNarrowed ? FilterWords() : QString()}, this);
    if (dialog.exec() == QDialog::Accepted) {
        Take(dialog.Opened());
    }
    ShowTroubleOfSaved();
}

void ReportsDialog::ShowTroubleOfSaved()
{
    QStringList unread;
    QStringList unmade;
    const auto runs = ReadRuns(services.settings, services.control);
    for (const ReportRun &run : runs.value_or(std::vector<ReportRun>())) {
        if (!run.report) {
            unread += run.name;
        } else if (HasTrouble(run)) {
            unmade += run.name;
        }
    }
    QStringList lines = runs ? QStringList() : QStringList(TextOf(runs.error()));
    if (!unmade.isEmpty()) {
        lines += tr("Not made as planned: %1. See \"Saved reports...\".").arg(unmade.join(u", "_s));
    }
    if (!unread.isEmpty()) {
        lines += tr("Cannot be read: %1. See \"Saved reports...\".").arg(unread.join(u", "_s));
    }
    savedNote->setVisible(!lines.isEmpty());
    savedNote->setText(lines.join(u'\n'));
}

// The users and groups are read again: without their names nobody could see whom the report is on.
void ReportsDialog::Take(const SavedReport &report)
{
    const auto offers = Await(services, this, tr("Reading the users..."), ReadOffers);
    if (!offers) {
        TellUnread(services, tr("The users and groups cannot be read."), offers.error());
        return;
    }
    const FilterScope ofUsers = ScopeOf(report.users, offers->allUsers);
    const FilterScope ofGroups = ScopeOf(report.groups, offers->groups);
    if (IsOnNobody(ofUsers) || IsOnNobody(ofGroups)) {
        services.prompt.Tell(
            tr("None of the users or groups that the report is on exists any more."));
        return;
    }
    userFilter = {report.users,
                  ofUsers,
                  ListsOf(report.users, IdsOf(offers->users), IdsOf(offers->allUsers))};
    groupFilter = {report.groups,
                   ofGroups,
                   ListsOf(report.groups, IdsOf(offers->groups), IdsOf(offers->groups))};
    catalogue->setCurrentRow(report.row);
    TakePeriod(PeriodNamed(report.period, Today()).value_or(ReportPeriod()));
    ShowFilterNote();
}

// A rule that has no button stands for its days.
void ReportsDialog::TakePeriod(const ReportPeriod &period)
{
    QRadioButton *const choices[] = {allAvailable, today, lastWeek, lastMonth};
    const auto place = static_cast<size_t>(period.choice);
    if (place < std::size(choices)) {
        choices[place]->setChecked(true);
        return;
    }
    custom->setChecked(true);
    since->SetDay(ExistingDate(period.from));
    until->SetDay(ExistingDate(period.to));
}

void ReportsDialog::ShowHelp()
{
    services.prompt.Tell(
        tr("Select a report, the period and, if you like, users or groups, and press \"Generate "
           "report\". Users and groups narrow a report only together with a period. The report "
           "can be printed or saved as PDF, CSV, HTML or XLSX."));
}
