#include "ui/reports/report_viewer.h"

#include "reports/paper.h"
#include "ui/common/accessible.h"
#include "ui/reports/group_outline.h"
#include "ui/reports/page_view.h"
#include "ui/reports/row_table.h"
#include "ui/reports/viewer_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastOutline = 100; // pixels
constexpr double kOutlineShare = 0.4; // of the width, at most

} // namespace

ReportViewer::ReportViewer(Prompt &messages, QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , job(this)
{
    view = new PageView;
    SetNames(*view, u"pages"_s, tr("Pages of the report"));
    message = new QLabel;
    message->setObjectName(u"message"_s);
    message->setWordWrap(true);
    message->setTextFormat(Qt::PlainText); // it quotes file names, searches, drivers
    message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // however long
    message->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    bar = new ViewerBar(prompt, *view);
    MakeProgressRow();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(bar);
    rows = new RowTable;
    both = new QStackedWidget;
    outline = new GroupOutline;
    outline->setMinimumWidth(kLeastOutline);
    outlined = new QSplitter;
    outlined->setObjectName(u"outlined"_s);
    outlined->setChildrenCollapsible(false);
    outlined->addWidget(outline);
    outlined->addWidget(view);
    outlined->setStretchFactor(1, 1);
    both->addWidget(outlined);
    both->addWidget(rows);
    column->addWidget(both, 1);
    column->addWidget(progressRow);
    column->addWidget(message);
    connect(bar, &ViewerBar::FindAsked, this, &ReportViewer::Find);
    connect(bar, &ViewerBar::PrintAsked, this, &ReportViewer::Print);
    connect(bar, &ViewerBar::SaveAsked, this, &ReportViewer::SaveAs);
    connect(bar, &ViewerBar::PageSetupAsked, this, &ReportViewer::PageSetupAsked);
    connect(bar, &ViewerBar::TableAsked, this, &ReportViewer::TurnToTable);
    connect(bar, &ViewerBar::OutlineAsked, this, &ReportViewer::ShowOutline);
    connect(outlined, &QSplitter::splitterMoved, this, [this] { wasOutlineSized = true; });
    connect(bar, &ViewerBar::BackAsked, this, &ReportViewer::Back);
    connect(view, &PageView::RowClicked, this, &ReportViewer::OpenRow);
    connect(rows, &RowTable::RowOpened, this, &ReportViewer::OpenRow);
    connect(view, &PageView::CurrentPageChanged, outline, &GroupOutline::ShowPage);
    connect(outline, &GroupOutline::GroupChosen, this, [this](int page, const QRectF &place) {
        view->GoTo(page);
        view->ScrollIntoSight(page, place);
    });
    connect(bar, &ViewerBar::FilterAsked, rows, &RowTable::StartFilter);
    connect(rows, &RowTable::Told, this, &ReportViewer::Say);
    connect(rows, &RowTable::Wished, this, &ReportViewer::ChooseRowsAgain);
    connect(&job, &ReportJob::Started, this, [this] { SetBusy(true); });
    connect(&job, &ReportJob::Progressed, this, &ReportViewer::ShowProgress);
    connect(&job, &ReportJob::Ended, this, [this] {
        ChooseRowsAgain(); // what was wished for meanwhile
        if (!job.IsRunning()) {
            SetBusy(false);
            emit Ready();
        }
    });
    ShowOutline();
    SetBusy(false);
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::MakeProgressRow()
{
    progressRow = new QWidget;
    progress = new QProgressBar;
    SetNames(*progress, u"progress"_s, tr("Progress of the report"));
    auto *stop = new QPushButton(tr("Stop"));
    stop->setObjectName(u"stop"_s);
    stop->setAutoDefault(false);
    connect(stop, &QPushButton::clicked, this, &ReportViewer::Cancel);
    auto *row = new QHBoxLayout(progressRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(progress, 1);
    row->addWidget(stop);
}

void ReportViewer::PutProperty(int number, const QVariant &value)
{
    using namespace viewer_property;
    switch (number) {
    case kLayoutFile:
        request.layoutPath = QString::fromUtf8(value.toByteArray());
        break;
    case kConnection:
        request.connectionText = QString::fromUtf8(value.toByteArray());
        break;
    case kQuery:
        request.query = QString::fromUtf8(value.toByteArray());
        break;
    case kCopies:
        copies = value.toInt();
        break;
    case kPrintButton:
        bar->ShowPrint(value.toBool());
        break;
    case kExportButton:
        bar->ShowSave(value.toBool());
        break;
    case kPageButtons:
        bar->ShowPageButtons(value.toBool());
        break;
    default: // the output mode: there is one, within the control
        break;
    }
    emit PropertyPut(number, value);
    if (number == kAction && value.toInt() == 1) {
        Run();
    }
}

void ReportViewer::SetSubject(const ReportSubject &subject)
{
    static_cast<ReportSubject &>(request) = subject;
}

void ReportViewer::RunAgain(const PageSetup &setup)
{
    request.setup = setup;
    if (table) {
        Run();
    }
}

void ReportViewer::Run()
{
    if (job.IsRunning()) {
        return;
    }
    if (request.layoutPath.isEmpty() && !request.statement) {
        Say(tr("Please select a report"));
        return;
    }
    const auto outcome = std::make_shared<Outcome>();
    request.made = QDateTime::currentDateTime();
    made = request;
    outline->SetPages(nullptr);
    ShowOutline();
    view->SetPages(nullptr);
    pages.reset();
    table.reset();
    found.reset();
    rows->SetTable(nullptr);
    shownWish.reset();
    Say({});
    job.Start(
        [wanted = request, outcome](RunControl &control) { *outcome = MakePages(wanted, control); },
        [this, outcome] { Show(*outcome); });
}

ReportViewer::Outcome ReportViewer::MakePages(const ReportRequest &wanted, RunControl &control)
{
    Outcome outcome;
    outcome.table = MakeReport(wanted, control, outcome.problem);
    if (outcome.table && !paper::HasNoFonts()) {
        outcome.pages = std::make_shared<const ReportPages>(outcome.table, &control);
    }
    if (control.IsCancelled()) {
        outcome = {nullptr, nullptr, {ReportProblem::Kind::Cancelled, {}}};
    }
    return outcome;
}

void ReportViewer::Show(const Outcome &outcome)
{
    table = outcome.table;
    pages = outcome.pages;
    if (!table) {
        Say(outcome.problem.kind == ReportProblem::Kind::Cancelled ? tr("The report was stopped.")
                                                                   : outcome.problem.text);
        return;
    }
    if (!pages) {
        Say(tr("No font is installed; install fonts-dejavu-core"));
        return;
    }
    const QString unread = table->rows.ReadProblem(); // met with as the pages were laid out
    Say(unread.isEmpty() ? LogoProblem(table->setup) : unread); // no more of the progress
    ShowTable();
}

void ReportViewer::ShowTable(const RowWish &wish)
{
    rows->SetTable(table, wish);
    shownWish.reset();
    view->SetOpensRows(made.opensRows);
    view->SetPages(pages);
    outline->SetPages(pages);
    ShowOutline();
    bar->WantsTable() ? rows->setFocus() : view->setFocus();
}

void ReportViewer::ShowOutline()
{
    bar->ShowOutline(outline->HasGroups());
    outline->setVisible(outline->HasGroups() && bar->WantsOutline());
    if (outline->isVisibleTo(this) && !wasOutlineSized) {
        const int width = outline->WidthWithin(static_cast<int>(kOutlineShare * outlined->width()));
        outlined->setSizes({width, outlined->width() - width});
    }
}

void ReportViewer::OpenRow(qint64 row)
{
    const auto read = made.opensRows && !job.IsRunning() && table ? table->rows.Read(row, 1)
                                                                  : std::vector<CellRow>();
    if (!read.empty()) {
        emit RowOpened(read.front());
    } else if (made.opensRows && !job.IsRunning() && table) {
        Say(table->rows.ReadProblem());
    }
}

void ReportViewer::KeepFormer()
{
    formers.push_back({made, table, pages, view->CurrentPage(), rows->Wish()});
    bar->ShowBack(true);
}

void ReportViewer::ForgetFormer()
{
    formers.clear();
    bar->ShowBack(false);
}

void ReportViewer::Back()
{
    if (formers.empty() || job.IsRunning()) {
        return;
    }
    const Former former = std::move(formers.back());
    formers.pop_back();
    bar->ShowBack(!formers.empty());
    request = former.request;
    made = former.request;
    table = former.table;
    pages = former.pages;
    found.reset();
    Say({});
    ShowTable(former.rows);
    view->GoTo(former.page);
    SetBusy(false);
    emit WentBack();
    ChooseRowsAgain();
}

void ReportViewer::TurnToTable()
{
    both->setCurrentIndex(bar->WantsTable() ? 1 : 0);
    bar->WantsTable() ? rows->setFocus() : view->setFocus();
    ChooseRowsAgain();
}

// While something else runs nothing is begun; its end begins it.
void ReportViewer::ChooseRowsAgain()
{
    const RowWish wish = rows->Wish();
    if (!table || !bar->WantsTable() || job.IsRunning() || shownWish == wish) {
        return;
    }
    const auto chosen = std::make_shared<std::optional<ChosenRows>>();
    shownWish = wish;
    job.Start(
        [of = table, wish, chosen](RunControl &control) {
            *chosen = ChooseRows(*of, wish, control);
        },
        [this, chosen] {
            if (*chosen) {
                Say({});
                rows->Show(*std::move(*chosen));
            } else {
                const QString problem = table->rows.ReadProblem();
                Say(problem.isEmpty() ? tr("The rows that show are those of before.") : problem);
            }
        });
}

void ReportViewer::ShowProgress(qint64 done, qint64 whole)
{
    progress->setRange(0, whole > 0 ? 1000 : 0);
    progress->setValue(whole > 0 ? static_cast<int>(1000 * done / whole) : 0);
    Say(whole > 0 ? tr("%1 of %2").arg(QLocale::c().toString(done), QLocale::c().toString(whole))
                  : tr("%1 rows read").arg(QLocale::c().toString(done)));
}

void ReportViewer::SetBusy(bool busy)
{
    progressRow->setVisible(busy);
    progress->setRange(0, 0);
    if (busy) {
        Say({});
    }
    bar->SetUsable(pages != nullptr, job.IsRunning());
}

void ReportViewer::Say(const QString &text)
{
    message->setText(text);
    message->setVisible(!text.isEmpty());
}

void ReportViewer::Find(const QString &text)
{
    if (!pages) {
        return;
    }
    const bool goesOn = found && found->page == view->CurrentPage()
        && searched.compare(text, Qt::CaseInsensitive) == 0;
    const auto now = std::make_shared<std::optional<PageHit>>();
    job.Start(
        [in = pages, text, from = view->CurrentPage(), after = goesOn ? found : std::nullopt, now](
            RunControl &control) { *now = in->FindText(text, from, after, &control); },
        [this, text, now] { ShowFound(text, *now); });
}

void ReportViewer::ShowFound(const QString &text, const std::optional<PageHit> &now)
{
    searched = text;
    found = now;
    if (found) {
        Say({});
        view->ShowHit(found->page, found->place);
        return;
    }
    const QString unread = table->rows.ReadProblem();
    Say(unread.isEmpty()
            ? tr("\"%1\" is not in this report.").arg(text)
            : tr("\"%1\" was not found, but not all rows could be read: %2").arg(text, unread));
    view->ShowHit(0, {});
}
