#include "ui/options/purge_dialog.h"

#include "admin/purge_words.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "service/service_guard.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/window_memory.h"
#include "ui/options/purge_period_box.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum OutcomeColumn { Table, WouldGo, Removed };

constexpr int kTroubleRole = Qt::UserRole + 1; // what went wrong with a table, in a word

QString TableTitle(const QString &table)
{
    const QHash<QString, QString> titles {
        {u"users"_s, PurgeDialog::tr("Users")},
        {u"traffic_use"_s, PurgeDialog::tr("Traffic records")},
        {u"time_use"_s, PurgeDialog::tr("Time records")},
        {u"billing"_s, PurgeDialog::tr("Limits and credits")},
        {u"sites"_s, PurgeDialog::tr("Sites")},
        {u"siteaccess"_s, PurgeDialog::tr("Visits to sites")},
    };
    return titles.value(table, table);
}

QString Number(qint64 number)
{
    return QLocale().toString(number);
}

bool IsUnknown(const PurgeOutcome &done)
{
    return done.outcome.state == Outcome::State::Unknown;
}

} // namespace

PurgeDialog::PurgeDialog(const AppServices &appServices, QWidget *parent)
    : Dialog(parent)
    , services(appServices)
{
    setWindowTitle(tr("Purge database"));
    Build();
    CheckOneOf({all, byPeriod}, byPeriod);
    EnableControls();
}

void PurgeDialog::Build()
{
    auto *tip = new QLabel(tr("You may purge all information in  your   database   or  select "
                              "particular time  period  on  the right of this window"));
    tip->setWordWrap(true);
    purge = MakeButton<QPushButton>(tr("Purge"), "purge");
    auto *help = MakeButton<QPushButton>(tr("Help"), "help");
    close = MakeButton<QPushButton>(tr("Close"), "close");
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(purge, QDialogButtonBox::ActionRole);
    buttons->addButton(help, QDialogButtonBox::HelpRole);
    buttons->addButton(close, QDialogButtonBox::RejectRole);
    connect(purge, &QPushButton::clicked, this, &PurgeDialog::Purge);
    connect(close, &QPushButton::clicked, this, &PurgeDialog::reject);
    connect(help, &QPushButton::clicked, this, [this] {
        services.prompt.Tell(tr("The records of the days that you keep stay in the database; all "
                                "older and newer ones are removed for good. Visits to sites are "
                                "removed only together with all other information."));
    });

    auto *choices = new QHBoxLayout;
    choices->addWidget(ModeBox(), 1);
    period = new PurgePeriodBox;
    connect(period, &PurgePeriodBox::Changed, this, &PurgeDialog::EnableControls);
    choices->addWidget(period, 1);
    auto *column = new QVBoxLayout(this);
    column->addWidget(tip);
    column->addLayout(choices);
    column->addWidget(OutcomeBox());
    column->addWidget(buttons);
    // In the window at last, so that it is this window's default; Return never presses another one.
    for (QPushButton *button : {purge, help}) {
        button->setAutoDefault(false);
    }
    close->setDefault(true);
    RememberSize(*this, u"purge"_s, sizeHint());
}

QWidget *PurgeDialog::ModeBox()
{
    auto *box = new QGroupBox(tr("Information to remove"));
    all = MakeButton<QRadioButton>(tr("Purge all information"), "all");
    deleteUsers = MakeButton<QCheckBox>(tr("Delete all users"), "deleteUsers");
    byPeriod = MakeButton<QRadioButton>(tr("Purge for the selected period"), "byPeriod");
    auto *indented = new QHBoxLayout;
    indented->addSpacing(20);
    indented->addWidget(deleteUsers);
    auto *column = new QVBoxLayout(box);
    column->addWidget(all);
    column->addLayout(indented);
    column->addWidget(byPeriod);
    column->addStretch();
    connect(all, &QRadioButton::toggled, this, &PurgeDialog::EnableControls);
    return box;
}

QWidget *PurgeDialog::OutcomeBox()
{
    auto *box = new QWidget;
    outcome = new QTreeWidget;
    SetNames(*outcome, u"outcome"_s, tr("Rows by table"));
    outcome->setHeaderLabels({tr("Table"), tr("Rows to remove"), tr("Rows removed")});
    for (const auto column : {WouldGo, Removed}) {
        outcome->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    outcome->setRootIsDecorated(false);
    outcome->header()->setSectionResizeMode(QHeaderView::Stretch);
    outcome->setMinimumHeight(8 * fontMetrics().height());
    progress = new QProgressBar;
    SetNames(*progress, u"progress"_s, tr("Progress of the purge"));
    progress->setValue(0);
    doing = new QLabel(tr("The rows are counted when you press \"Purge\", before anything goes."));
    doing->setObjectName(u"doing"_s);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(outcome);
    column->addWidget(doing);
    column->addWidget(progress);
    return box;
}

void PurgeDialog::EnableControls()
{
    deleteUsers->setEnabled(all->isChecked());
    period->setEnabled(byPeriod->isChecked());
    purge->setEnabled(!busy && (all->isChecked() || period->IsChosen()));
    close->setEnabled(!busy);
}

std::optional<PurgeChoice> PurgeDialog::Choice() const
{
    if (all->isChecked()) {
        return PurgeChoice {PurgeChoice::Keep::Nothing, deleteUsers->isChecked(), {}, {}};
    }
    return period->Choice();
}

// The service may have been started since the window opened.
void PurgeDialog::Purge()
{
    const bool isInOrder = !busy && (all->isChecked() || period->IsInOrder(services.prompt));
    const auto choice = isInOrder ? Choice() : std::nullopt;
    if (!choice || !PurgeMayOpen(services.control, services.prompt)) {
        return;
    }
    SetBusy(true);
    period->ShowDays(); // a new day may have begun
    const QDate day = Today();
    auto steps = PurgeSteps(*choice, day);
    if (Count(steps) && MayRemove(*choice, day)) {
        RunSteps(steps);
    }
    SetBusy(false);
}

bool PurgeDialog::MayRemove(const PurgeChoice &choice, QDate day)
{
    const QString words = PurgeInWords(choice, day);
    const auto late = QuestionOnLateDay(choice, day);
    return (!late || services.prompt.AskToDestroy(*late, {}))
        && services.prompt.AskToDestroy(
            tr("This will erase the particular information from your database. Continue?"), words)
        && PurgeMayOpen(services.control, services.prompt);
}

// False when a person cancelled it. A count that failed is told and keeps nobody from purging: its rows
// are then not known.
bool PurgeDialog::Count(std::vector<PurgeStep> &steps)
{
    const QString what = tr("Counting the rows to remove...");
    doing->setText(what);
    const auto counted = Await(
        services,
        this,
        what,
        [steps] { return CountPurge(steps); },
        SessionThread::Patience::Endless);
    doing->clear();
    if (counted) {
        steps = *counted;
    }
    ShowCounts(steps);
    if (!counted) {
        TellUnread(services,
                   tr("The rows to remove could not be counted. Nothing was removed so far."),
                   counted.error());
    }
    return counted || counted.error().kind != Failure::Kind::Cancelled;
}

void PurgeDialog::ShowCounts(const std::vector<PurgeStep> &steps)
{
    outcome->clear();
    const bool known =
        std::ranges::all_of(steps, [](const PurgeStep &step) { return step.rows.has_value(); });
    for (const PurgeCount &count : RowsByTable(steps)) {
        auto *row = new QTreeWidgetItem(
            {TableTitle(count.table), known ? Number(count.rows) : tr("not known"), {}});
        row->setData(Table, Qt::UserRole, count.table);
        for (const auto column : {WouldGo, Removed}) {
            row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        }
        outcome->addTopLevelItem(row);
    }
}

void PurgeDialog::RunSteps(const std::vector<PurgeStep> &steps)
{
    Trouble trouble;
    bool cancelled = false;
    progress->setRange(0, static_cast<int>(steps.size()));
    for (size_t step = 0; step < steps.size(); ++step) {
        const QString title = TableTitle(QLatin1String(steps[step].table));
        if (cancelled) {
            trouble.notTried << title;
            continue;
        }
        const QString what = tr("Removing from: %1").arg(title);
        doing->setText(what);
        progress->setValue(static_cast<int>(step));
        const PurgeOutcome done = Await(
            services,
            this,
            what,
            [each = steps[step]] { return RunPurgeStep(each); },
            SessionThread::Patience::Endless);
        ShowRemoved(steps[step], done);
        if (!done.outcome.IsDone()) {
            (IsUnknown(done) ? trouble.unknown : trouble.failed) << title;
        }
        for (const Failure &failure : done.outcome.failures) {
            cancelled = cancelled || failure.kind == Failure::Kind::Cancelled;
            trouble.reasons << failure.InWords();
        }
    }
    progress->setValue(static_cast<int>(steps.size()));
    doing->clear();
    TellEnd(trouble);
}

// A table with two steps shows what both removed, and that one of them failed.
void PurgeDialog::ShowRemoved(const PurgeStep &step, const PurgeOutcome &done)
{
    for (int index = 0; index < outcome->topLevelItemCount(); ++index) {
        QTreeWidgetItem *row = outcome->topLevelItem(index);
        if (row->data(Table, Qt::UserRole).toString() != QLatin1String(step.table)) {
            continue;
        }
        const qint64 removed = row->data(Removed, Qt::UserRole).toLongLong() + done.removed;
        row->setData(Removed, Qt::UserRole, removed);
        if (!done.outcome.IsDone()) {
            row->setData(Removed, kTroubleRole, IsUnknown(done) ? tr("not known") : tr("failed"));
        }
        const QString trouble = row->data(Removed, kTroubleRole).toString();
        if (trouble.isEmpty()) {
            row->setText(Removed, Number(removed));
        } else {
            row->setText(Removed,
                         removed > 0 ? u"%1, %2"_s.arg(Number(removed), trouble) : trouble);
        }
    }
}

void PurgeDialog::TellEnd(const Trouble &trouble)
{
    const std::pair<QString, QStringList> kinds[] = {
        {tr("Not removed: %1"), trouble.failed},
        {tr("It is not known whether this was removed: %1"), trouble.unknown},
        {tr("Not tried after you cancelled: %1"), trouble.notTried},
    };
    QStringList lines;
    for (auto [text, titles] : kinds) {
        titles.removeDuplicates();
        if (!titles.isEmpty()) {
            lines << text.arg(titles.join(u", "_s));
        }
    }
    if (lines.isEmpty()) {
        services.prompt.Tell(tr("Purge complete"));
        return;
    }
    lines.prepend(tr("The purge is not complete. What is not named here was removed."));
    QStringList reasons = trouble.reasons;
    reasons.removeDuplicates();
    services.prompt.Tell((QStringList(lines.join(u'\n')) + reasons).join(u"\n\n"_s),
                         Prompt::Icon::Error);
}

// A button that is disabled loses the focus, which would end up at Help.
void PurgeDialog::SetBusy(bool nowBusy)
{
    busy = nowBusy;
    EnableControls();
    if (!busy) {
        close->setFocus();
    }
}

void PurgeDialog::reject()
{
    if (!busy) {
        QDialog::reject();
    }
}

void OpenPurge(const AppServices &services, QWidget *parent)
{
    if (PurgeMayOpen(services.control, services.prompt)) {
        PurgeDialog(services, parent).exec();
    }
}
