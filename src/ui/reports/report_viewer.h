// The report control: takes a layout, a connection and a query, runs them and shows the pages.
#pragma once

#include "base/prompt.h"
#include "reports/engine.h"
#include "reports/report_pages.h"
#include "reports/row_choice.h"
#include "ui/reports/report_job.h"

#include <QVariant>
#include <QWidget>

class GroupOutline;
class PageView;
class QLabel;
class QPrinter;
class QProgressBar;
class QSplitter;
class QStackedWidget;
class RowTable;
class ViewerBar;

// The numbers by which the control's properties are put.
namespace viewer_property {
constexpr int kLayoutFile = 3; // text
constexpr int kAction = 17; // 1 runs the report and shows it
constexpr int kConnection = 20; // text
constexpr int kCopies = 24; // number preset for printing; 0 for the printer's own
constexpr int kQuery = 64; // text; empty: the layout's stored one
constexpr int kOutputMode = 67; // 2: shown in the control itself
constexpr int kPrintButton = 120; // on or off
constexpr int kExportButton = 123;
constexpr int kPageButtons = 125;
} // namespace viewer_property

class ReportViewer : public QWidget
{
    Q_OBJECT

public:
    explicit ReportViewer(Prompt &prompt, QWidget *parent = nullptr);
    ~ReportViewer() override;

    void PutProperty(int number, const QVariant &value);

    // What the next report is made on beside its query: what its heading says of its period and filter,
    // the period's days, the site's paper and currency.
    void SetSubject(const ReportSubject &subject);

    // Statements instead of what the layout and the query say; nothing for a report of those.
    void SetStatements(const std::optional<StatementFilter> &chosen) { request.statement = chosen; }

    // Whether there is something behind each row of the next report: RowOpened() tells of a click.
    void SetOpensRows(bool opens) { request.opensRows = opens; }

    // The next report leads back to the one that shows; or to none any more.
    void KeepFormer();
    void ForgetFormer();

    void Print(); // asks for the printer
    void PrintOn(const std::shared_ptr<QPrinter> &printer); // on the paper that it has
    void SaveAs(); // asks for the name
    void SaveTo(const QString &fileName);
    void SaveEachTo(const QString &fileName); // a file for each statement (statement_files.h)
    // From the page shown on, or behind the last place that was found there; behind the last page from
    // the first again.
    void Find(const QString &text);
    void Cancel() { job.Cancel(); }

    [[nodiscard]] bool IsBusy() const { return job.IsRunning(); }
    [[nodiscard]] ReportTablePtr Table() const { return table; }
    [[nodiscard]] PageView &View() { return *view; }

    // Makes the report that shows again, on the site's present paper; nothing without one.
    void RunAgain(const PageSetup &setup);

signals:
    void PageSetupAsked();
    void PropertyPut(int number, const QVariant &value);
    void RowOpened(const CellRow &row);
    void WentBack(); // to the report that was kept last
    void Ready(); // a run, an export, a print or a search has ended

private:
    // What is asked for, and what the rows of it are good for.
    struct Asked : ReportRequest
    {
        bool opensRows = false;
    };

    // A report that is led back to.
    struct Former
    {
        Asked request;
        ReportTablePtr table;
        std::shared_ptr<const ReportPages> pages;
        int page = 0;
        RowWish rows;
    };

    // What a run comes to; the pages are laid out on its thread too.
    struct Outcome
    {
        ReportTablePtr table;
        std::shared_ptr<const ReportPages> pages; // null without a font
        ReportProblem problem;
    };

    void MakeProgressRow();
    void Run();
    [[nodiscard]] static Outcome MakePages(const ReportRequest &wanted, RunControl &control);
    void Show(const Outcome &outcome);
    void ShowFound(const QString &text, const std::optional<PageHit> &now);
    void TurnToTable();
    void ShowTable(const RowWish &wish = {});
    void ShowOutline();
    void OpenRow(qint64 row);
    void Back();
    void ChooseRowsAgain();
    void ShowProgress(qint64 done, qint64 whole);
    [[nodiscard]] bool MayReplace(const QString &fileName, bool each);
    [[nodiscard]] bool AsksForEach();
    void SetBusy(bool busy);
    void Say(const QString &text);

    Prompt &prompt;
    Asked request;
    Asked made; // what shows was made of
    std::vector<Former> formers;
    int copies = 0;
    ReportTablePtr table;
    std::shared_ptr<const ReportPages> pages;
    QString searched; // the text that was found last
    std::optional<PageHit> found; // and where

    ViewerBar *bar;
    PageView *view;
    GroupOutline *outline;
    QSplitter *outlined; // the outline and the pages
    bool wasOutlineSized = false; // by the user
    RowTable *rows;
    QStackedWidget *both; // the pages and the rows
    std::optional<RowWish> shownWish; // by which the rows were chosen; nothing while none are
    QLabel *message;
    QProgressBar *progress;
    QWidget *progressRow;
    ReportJob job;
};
