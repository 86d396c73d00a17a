#include "ui/reports/report_viewer.h"

#include "app/administrator_app.h"
#include "reports/output.h"
#include "reports/paper.h"
#include "ui/common/accessible.h"
#include "ui/common/icons.h"
#include "ui/reports/page_view.h"
#include "ui/reports/print_pages.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kFitWidth = u"Fit width"_s;

// The key works on the field alone: the dialog around it would press its default button.
void TakeReturn(QWidget &field, const std::function<void()> &act)
{
    auto *action = new QAction(&field);
    action->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, &field, act);
    field.addAction(action);
}

} // namespace

ReportViewer::ReportViewer(QWidget *parent) : QWidget(parent), job(this)
{
    view = new PageView;
    SetNames(*view, u"pages"_s, u"Pages of the report"_s);
    message = new QLabel;
    message->setObjectName(u"message"_s);
    message->setWordWrap(true);
    message->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    BuildBars();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(bar);
    column->addWidget(view, 1);
    column->addWidget(progressRow);
    column->addWidget(message);
    connect(view, &PageView::CurrentPageChanged, this, &ReportViewer::ShowPageNumber);
    connect(&job, &ReportJob::Started, this, [this] { SetBusy(true); });
    connect(&job, &ReportJob::Progressed, this, &ReportViewer::ShowProgress);
    connect(&job, &ReportJob::Ended, this, [this] {
        SetBusy(false);
        emit Ready();
    });
    SetBusy(false);
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::BuildBars()
{
    bar = new QToolBar;
    bar->setIconSize({16, 16});
    AddPageButtons(*bar);
    bar->addSeparator();
    AddZoom(*bar);
    AddFind(*bar);
    bar->addSeparator();
    print = Command(*bar, "print", u"Print..."_s, QKeySequence::Print, &ReportViewer::Print);
    print->setIcon(IconOf(Picture::Print));
    save = Command(*bar, "save", u"Save as..."_s, QKeySequence::Save, &ReportViewer::SaveAs);
    save->setIcon(IconOf(Picture::Save));

    progressRow = new QWidget;
    progress = new QProgressBar;
    SetNames(*progress, u"progress"_s, u"Progress of the report"_s);
    auto *stop = new QPushButton(u"Stop"_s);
    stop->setObjectName(u"stop"_s);
    stop->setAutoDefault(false);
    connect(stop, &QPushButton::clicked, this, &ReportViewer::Cancel);
    auto *row = new QHBoxLayout(progressRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(progress, 1);
    row->addWidget(stop);
}

QAction *ReportViewer::Command(QToolBar &onBar,
                               const char *name,
                               const QString &text,
                               const QKeySequence &key,
                               void (ReportViewer::*act)())
{
    QAction *action = onBar.addAction(text);
    action->setObjectName(QLatin1StringView(name));
    action->setShortcut(key);
    action->setShortcutContext(Qt::WindowShortcut);
    action->setToolTip(u"%1 (%2)"_s.arg(PlainLabel(text), key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, act);
    onBar.widgetForAction(action)->setObjectName(QLatin1StringView(name) + u"Button");
    onBar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    return action;
}

void ReportViewer::AddPageButtons(QToolBar &onBar)
{
    using Viewer = ReportViewer;
    pageNumber = new QSpinBox;
    SetNames(*pageNumber, u"pageNumber"_s, u"Page number"_s);
    pageNumber->setKeyboardTracking(false);
    pageCount = new QLabel;
    pageCount->setObjectName(u"pageCount"_s);
    pageButtons << Command(
        onBar, "firstPage", u"|<"_s, QKeySequence(u"Ctrl+Home"_s), &Viewer::First);
    pageButtons << Command(
        onBar, "previousPage", u"<"_s, QKeySequence(u"Ctrl+PgUp"_s), &Viewer::Previous);
    pageButtons << onBar.addWidget(pageNumber) << onBar.addWidget(pageCount);
    pageButtons << Command(
        onBar, "nextPage", u">"_s, QKeySequence(u"Ctrl+PgDown"_s), &Viewer::Next);
    pageButtons << Command(onBar, "lastPage", u">|"_s, QKeySequence(u"Ctrl+End"_s), &Viewer::Last);
    const QStringList names {
        u"First page"_s, u"Previous page"_s, {}, {}, u"Next page"_s, u"Last page"_s};
    for (qsizetype place = 0; place < names.size(); ++place) {
        if (!names.at(place).isEmpty()) {
            onBar.widgetForAction(pageButtons.at(place))->setAccessibleName(names.at(place));
            pageButtons.at(place)->setToolTip(
                names.at(place) + u" (" + pageButtons.at(place)->shortcut().toString() + u')');
        }
    }
    TakeReturn(*pageNumber, [this] { pageNumber->interpretText(); });
    connect(pageNumber, &QSpinBox::valueChanged, this, [this](int number) {
        if (number - 1 != view->CurrentPage()) {
            view->GoTo(number - 1);
        }
    });
}

void ReportViewer::AddZoom(QToolBar &onBar)
{
    zoom = new QComboBox;
    SetNames(*zoom, u"zoom"_s, u"Zoom"_s);
    zoom->addItem(kFitWidth);
    for (const int percent : {50, 75, 100, 125, 150, 200, 300}) {
        zoom->addItem(u"%1 %"_s.arg(percent), percent);
    }
    connect(zoom, &QComboBox::currentIndexChanged, this, [this] {
        const int percent = zoom->currentData().toInt();
        if (percent == 0) {
            view->FitWidth();
        } else {
            view->SetZoom(percent / 100.0);
        }
    });
    auto *label = new QLabel(u" &Zoom: "_s);
    label->setBuddy(zoom);
    onBar.addWidget(label);
    onBar.addWidget(zoom);
    onBar.addSeparator();
}

void ReportViewer::AddFind(QToolBar &onBar)
{
    find = new QLineEdit;
    SetNames(*find, u"find"_s, u"Find text"_s);
    find->setPlaceholderText(u"Find text"_s);
    find->setMaximumWidth(180);
    TakeReturn(*find, [this] { FindNext(); });
    onBar.addWidget(find);
    Command(onBar, "findNext", u"Find next"_s, QKeySequence::FindNext, &ReportViewer::FindNext)
        ->setIcon(IconOf(Picture::Find));
    auto *start = new QAction(this);
    start->setShortcut(QKeySequence::Find);
    connect(start, &QAction::triggered, this, &ReportViewer::StartFind);
    addAction(start);
}

void ReportViewer::StartFind()
{
    find->setFocus(Qt::ShortcutFocusReason);
    find->selectAll();
}

void ReportViewer::First()
{
    view->GoTo(0);
}

void ReportViewer::Previous()
{
    view->GoTo(view->CurrentPage() - 1);
}

void ReportViewer::Next()
{
    view->GoTo(view->CurrentPage() + 1);
}

void ReportViewer::Last()
{
    view->GoTo(pages ? pages->Count() - 1 : 0);
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
        print->setVisible(value.toBool());
        break;
    case kExportButton:
        save->setVisible(value.toBool());
        break;
    case kPageButtons:
        for (QAction *button : std::as_const(pageButtons)) {
            button->setVisible(value.toBool());
        }
        break;
    default: // the output mode: there is one, within the control
        break;
    }
    emit PropertyPut(number, value);
    if (number == kAction && value.toInt() == 1) {
        Run();
    }
}

void ReportViewer::SetHeading(const QString &period, const QString &filter)
{
    request.period = period;
    request.filter = filter;
}

void ReportViewer::Run()
{
    if (job.IsRunning()) {
        return;
    }
    if (request.layoutPath.isEmpty()) {
        Say(u"Please select a report"_s);
        return;
    }
    const auto outcome = std::make_shared<Outcome>();
    request.made = QDateTime::currentDateTime();
    view->SetPages(nullptr);
    pages.reset();
    table.reset();
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
        Say(outcome.problem.kind == ReportProblem::Kind::Cancelled ? u"The report was stopped."_s
                                                                   : outcome.problem.text);
        return;
    }
    if (!pages) {
        Say(u"No font is installed; install fonts-dejavu-core"_s);
        return;
    }
    view->SetPages(pages);
    view->setFocus();
}

void ReportViewer::ShowPageNumber(int page)
{
    const QSignalBlocker quiet(pageNumber);
    const int count = pages ? pages->Count() : 0;
    pageNumber->setRange(count > 0 ? 1 : 0, count);
    pageNumber->setValue(count > 0 ? page + 1 : 0);
    pageCount->setText(u" of %1 "_s.arg(count));
}

void ReportViewer::ShowProgress(qint64 done, qint64 whole)
{
    progress->setRange(0, whole > 0 ? 1000 : 0);
    progress->setValue(whole > 0 ? static_cast<int>(1000 * done / whole) : 0);
    Say(whole > 0 ? u"%1 of %2"_s.arg(QLocale::c().toString(done), QLocale::c().toString(whole))
                  : u"%1 rows read"_s.arg(QLocale::c().toString(done)));
}

void ReportViewer::SetBusy(bool busy)
{
    progressRow->setVisible(busy);
    progress->setRange(0, 0);
    if (busy) {
        Say({});
    }
    EnableCommands();
}

void ReportViewer::EnableCommands()
{
    const bool usable = pages != nullptr && !job.IsRunning();
    print->setEnabled(usable);
    save->setEnabled(usable);
    find->setEnabled(usable);
    ShowPageNumber(view->CurrentPage());
}

void ReportViewer::Say(const QString &text)
{
    message->setText(text);
    message->setVisible(!text.isEmpty());
}

void ReportViewer::FindNext()
{
    const QString text = find->text();
    if (text.isEmpty() || !pages) {
        return;
    }
    const auto found = std::make_shared<int>(-1);
    job.Start(
        [searched = pages, text, from = view->CurrentPage() + 1, found](RunControl &control) {
            *found = searched->FindText(text, from, &control);
            if (*found < 0) { // from the beginning again
                *found = searched->FindText(text, 0, &control);
            }
        },
        [this, text, found] {
            Say(*found < 0 ? u"\"%1\" is not in this report."_s.arg(text) : QString());
            view->GoTo(*found < 0 ? view->CurrentPage() : *found);
        });
}

void ReportViewer::Print()
{
    auto printer = ChoosePrinter(*this, copies, pages ? pages->Count() : 0);
    if (!printer || !pages) {
        return;
    }
    const auto outcome = std::make_shared<QString>();
    job.Start(
        [printed = pages, printer, outcome](RunControl &control) {
            const int sent = PrintPages(*printed, *printer, control);
            *outcome = sent == 0 ? u"The report was not printed."_s
                : control.IsCancelled()
                ? u"Printing was stopped; pages sent before: %1."_s.arg(sent)
                : u"The report was sent to the printer."_s;
        },
        [this, outcome] { Say(*outcome); });
}

void ReportViewer::SaveAs()
{
    const QStringList endings {u"pdf"_s, u"xlsx"_s, u"csv"_s, u"html"_s};
    const QStringList kinds {u"PDF (*.pdf)"_s,
                             u"Spreadsheet (*.xlsx)"_s,
                             u"Text with commas (*.csv)"_s,
                             u"Web page (*.html)"_s};
    QFileDialog dialog(this, u"Save report"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(kinds);
    const auto takeEnding = [&](const QString &kind) {
        dialog.setDefaultSuffix(endings.value(kinds.indexOf(kind)));
    };
    connect(&dialog, &QFileDialog::filterSelected, &dialog, takeEnding);
    takeEnding(kinds.front());
    dialog.selectFile(QString(table->layout.title).replace(u'/', u'-')); // the ending is added
    if (dialog.exec() == QDialog::Accepted) {
        SaveTo(dialog.selectedFiles().constFirst());
    }
}

void ReportViewer::SaveTo(const QString &fileName)
{
    const auto problem = std::make_shared<ReportProblem>();
    job.Start(
        [saved = table, fileName, problem](RunControl &control) {
            if (WriteReport(saved, fileName, control, *problem)) {
                *problem = {};
            }
        },
        [this, fileName, problem] {
            switch (problem->kind) {
            case ReportProblem::Kind::None:
                Say(u"Saved as %1"_s.arg(fileName));
                break;
            case ReportProblem::Kind::Cancelled:
                Say(u"The report was not saved."_s);
                break;
            default:
                theApp->Messages().Tell(problem->text, Prompt::Icon::Warning);
            }
        });
}
