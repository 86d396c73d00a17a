#include "ui/reports/row_table.h"

#include "reports/csv_text.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPause = 300; // milliseconds
constexpr int kWidestColumn = 320; // pixels, at first
constexpr size_t kMostCopied = 100'000; // rows; more belong into a file

// On one line, without a tab. A spreadsheet that is handed a quotation mark first looks for the second one, over
// the ends of cells and rows.
QString CopiedCell(const LayoutColumn &column, const Cell &cell)
{
    const QString text = OneLine(PlainText(column, cell));
    const QString guarded = column.IsNumber() ? text : GuardedText(text);
    return guarded.startsWith(u'"') ? u'"' + QString(guarded).replace(u'"', u"\"\""_s) + u'"'
                                    : guarded;
}

QString CopiedLine(const Layout &layout, const CellRow &cells)
{
    QStringList fields;
    for (const int column : layout.DataColumns()) {
        fields += CopiedCell(layout.columns.at(column), cells[static_cast<size_t>(column)]);
    }
    return fields.join(u'\t') + u'\n';
}

} // namespace

void RowModel::Show(const ReportTablePtr &newTable, ChosenRows newChosen)
{
    beginResetModel();
    table = newTable;
    chosen = std::move(newChosen);
    columns = table ? table->layout.DataColumns() : QList<int>();
    read.clear();
    endResetModel();
}

int RowModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(chosen.rows.size());
}

int RowModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

const CellRow *RowModel::RowAt(int place) const
{
    const quint32 row = chosen.rows[static_cast<size_t>(place)];
    if (const CellRow *known = read.object(row)) {
        return known;
    }
    auto rows = table->rows.Read(row, 1);
    if (rows.empty()) {
        return nullptr;
    }
    read.insert(row, new CellRow(std::move(rows.front())));
    return read.object(row);
}

QVariant RowModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const LayoutColumn &column = table->layout.columns.at(ColumnAt(index.column()));
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (column.IsNumber() ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    const CellRow *row = RowAt(index.row());
    return row == nullptr
        ? tr("cannot be read")
        : OneLine(DisplayText(column, (*row)[static_cast<size_t>(ColumnAt(index.column()))]));
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return role == Qt::DisplayRole && orientation == Qt::Horizontal && table
        ? HeadingOf(table->layout.columns.at(ColumnAt(section)))
        : QVariant();
}

RowTable::RowTable(QWidget *parent)
    : QWidget(parent)
    , model(new RowModel(this))
    , filter(new QLineEdit)
    , where(new QComboBox)
    , view(new QTableView)
    , sums(new QLabel)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    MakeFilterRow(*column);
    SetNames(*view, u"rows"_s, tr("Rows of the report"));
    setFocusProxy(view);
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setAlternatingRowColors(true);
    view->setWordWrap(false);
    view->setTabKeyNavigation(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    view->horizontalHeader()->setSectionsClickable(true);
    view->horizontalHeader()->setHighlightSections(false);
    view->horizontalHeader()->setSortIndicatorShown(true);
    view->horizontalHeader()->setSortIndicatorClearable(true);
    view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    view->horizontalHeader()->setResizeContentsPrecision(50);
    connect(view->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &RowTable::Wished);
    connect(view, &QTableView::doubleClicked, this, &RowTable::OpenCurrent);
    TakeReturn(*view, [this] { OpenCurrent(); });
    column->addWidget(view, 1);
    sums->setObjectName(u"sums"_s);
    sums->setWordWrap(true);
    sums->setTextFormat(Qt::PlainText);
    sums->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(sums);
    auto *copy = new QShortcut(QKeySequence::Copy, view);
    copy->setContext(Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, &RowTable::Copy);
}

void RowTable::MakeFilterRow(QBoxLayout &column)
{
    SetNames(*filter, u"rowFilter"_s, tr("Only rows with"));
    filter->setPlaceholderText(tr("Only rows with"));
    filter->setClearButtonEnabled(true);
    SetNames(*where, u"rowFilterColumn"_s, tr("Column that is searched"));
    pause.setSingleShot(true);
    pause.setInterval(kPause);
    connect(&pause, &QTimer::timeout, this, &RowTable::Wished);
    connect(filter, &QLineEdit::textChanged, &pause, qOverload<>(&QTimer::start));
    TakeReturn(*filter, [this] {
        pause.stop();
        emit Wished();
    });
    TakeEscape(*filter, [this] {
        filter->clear();
        view->setFocus();
    });
    connect(where, &QComboBox::currentIndexChanged, this, &RowTable::Wished);
    auto *row = new QHBoxLayout;
    row->addWidget(filter, 1);
    row->addWidget(where);
    column.addLayout(row);
}

void RowTable::SetTable(const ReportTablePtr &newTable, const RowWish &wish)
{
    table = newTable;
    isFresh = true;
    const QSignalBlocker quietChoice(where);
    const QSignalBlocker quietHeader(view->horizontalHeader());
    filter->setText(wish.text);
    pause.stop();
    where->clear();
    where->addItem(tr("in any column"), RowWish::kNone);
    for (const int place : table ? table->layout.DataColumns() : QList<int>()) {
        where->addItem(tr("in \"%1\"").arg(table->layout.columns.at(place).heading), place);
    }
    where->setCurrentIndex(std::max(0, where->findData(wish.column)));
    model->Show(table, {});
    view->horizontalHeader()->setSortIndicator(
        model->PlaceOf(wish.orderBy), wish.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    sums->clear();
}

void RowTable::Show(ChosenRows chosen)
{
    const QSignalBlocker quiet(view->horizontalHeader());
    model->Show(table, std::move(chosen));
    if (std::exchange(isFresh, false)) {
        view->resizeColumnsToContents();
        for (int place = 0; place < model->columnCount(); ++place) {
            view->setColumnWidth(place, std::min(view->columnWidth(place), kWidestColumn));
        }
    }
    const QLocale c = QLocale::c();
    const QString count =
        tr("%1 of %2 rows").arg(c.toString(model->rowCount()), c.toString(table->rows.Count()));
    const QString totals = TotalsInWords(table->layout, model->Chosen().totals);
    sums->setText(totals.isEmpty() ? count : count + u". " + totals);
}

RowWish RowTable::Wish() const
{
    const QHeaderView &header = *view->horizontalHeader();
    return {.text = filter->text(),
            .column = where->currentData().toInt(),
            .orderBy = model->ColumnAt(header.sortIndicatorSection()),
            .descending = header.sortIndicatorOrder() == Qt::DescendingOrder};
}

void RowTable::StartFilter()
{
    filter->setFocus(Qt::ShortcutFocusReason);
    filter->selectAll();
}

// From top to bottom, in whatever order they were selected.
std::vector<int> RowTable::SelectedPlaces() const
{
    std::vector<int> places;
    for (const QItemSelectionRange &range : view->selectionModel()->selection()) {
        for (int place = range.top(); place <= range.bottom(); ++place) {
            places.push_back(place);
        }
    }
    std::ranges::sort(places);
    return places;
}

// The rows with their headings, as a spreadsheet takes them: tabs between, numbers without grouping. Nothing when
// one of them cannot be read. Rows that follow each other in the report are read together.
std::optional<QString> RowTable::TextOf(const std::vector<int> &places) const
{
    constexpr size_t kAtOnce = 4096;
    QStringList fields;
    for (int column = 0; column < model->columnCount(); ++column) {
        fields += model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    QString text = fields.join(u'\t') + u'\n';
    const std::vector<quint32> &rows = model->Chosen().rows;
    const auto rowAt = [&](size_t at) { return rows[static_cast<size_t>(places[at])]; };
    for (size_t at = 0, count = 0; at < places.size(); at += count) {
        count = 1;
        while (count < kAtOnce && at + count < places.size()
               && rowAt(at + count) == rowAt(at) + count) {
            ++count;
        }
        const auto read = table->rows.Read(rowAt(at), static_cast<qint64>(count));
        if (read.size() < count) {
            return std::nullopt;
        }
        for (const CellRow &cells : read) {
            text += CopiedLine(table->layout, cells);
        }
    }
    return text;
}

void RowTable::OpenCurrent()
{
    if (const QModelIndex current = view->currentIndex(); current.isValid()) {
        emit RowOpened(model->Chosen().rows[static_cast<size_t>(current.row())]);
    }
}

void RowTable::Copy()
{
    std::vector<int> places = SelectedPlaces();
    if (places.empty()) {
        return;
    }
    const QLocale c = QLocale::c();
    const size_t selected = places.size();
    places.resize(std::min(selected, kMostCopied));
    const auto text = TextOf(places);
    if (!text) {
        emit Told(tr("Nothing was copied. %1").arg(table->rows.ReadProblem()));
        return;
    }
    QApplication::clipboard()->setText(*text);
    emit Told(
        places.size() == selected
            ? QString()
            : tr("Only the first %1 of %2 selected rows were copied. \"Save as...\" takes all rows of "
                 "the report.")
                  .arg(c.toString(static_cast<qulonglong>(places.size())),
                       c.toString(static_cast<qulonglong>(selected))));
}
