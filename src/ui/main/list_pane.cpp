#include "ui/main/list_pane.h"

#include "reports/cell.h"
#include "ui/common/choice_keys.h"
#include "ui/common/empty_note.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>

ListPane::ListPane(QWidget *parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setVerticalScrollMode(ScrollPerItem);
    setIconSize(QSize(16, 16));
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header()->setStretchLastSection(false);
}

QList<int> ListPane::SelectedRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows()) {
        rows.append(index.row());
    }
    std::ranges::sort(rows);
    return rows;
}

int ListPane::RowCount() const
{
    return model()->rowCount();
}

void ListPane::DeselectFirst()
{
    const QList<int> rows = SelectedRows();
    if (!rows.isEmpty()) {
        selectionModel()->select(model()->index(rows.front(), 0),
                                 QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
}

void ListPane::ShowModel(QAbstractItemModel *model)
{
    setModel(model);
    emptyNote = new EmptyNote(*this);
    connect(this, &ListPane::ReadingChanged, this, &ListPane::ShowEmptyNote);
    connect(this, &ListPane::Filled, this, &ListPane::ShowEmptyNote);
    connect(selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &ListPane::SelectionChanged);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        deselectedRow = QPersistentModelIndex();
    });
    connect(model, &QAbstractItemModel::modelReset, this, &ListPane::SelectionChanged);
}

bool ListPane::IsInView(const QModelIndex &index) const
{
    return index.isValid() && viewport()->rect().intersects(visualRect(index));
}

QList<QPersistentModelIndex> ListPane::RowsInView() const
{
    QList<QPersistentModelIndex> rows;
    for (QModelIndex row = indexAt(QPoint(0, 0)); IsInView(row); row = indexBelow(row)) {
        rows << QPersistentModelIndex(row);
    }
    return rows;
}

// A list that shows its beginning goes on showing it, with what is new there.
void ListPane::KeepingPlace(const std::function<void()> &fill)
{
    const bool atTop = verticalScrollBar()->value() == 0;
    const int across = horizontalScrollBar()->value();
    const bool showsCurrent = IsInView(currentIndex());
    const QList<QPersistentModelIndex> shown = RowsInView();
    fill();
    executeDelayedItemsLayout();
    const auto top = std::ranges::find_if(shown, &QPersistentModelIndex::isValid);
    if (!atTop && top != shown.end()) {
        verticalScrollBar()->setValue(top->row());
    }
    if (showsCurrent) {
        scrollTo(currentIndex());
    }
    horizontalScrollBar()->setValue(across);
    emit SelectionChanged(); // another one may be the first selected row
}

// Neighbours as one range: a selection of a thousand ranges takes a while.
QItemSelection ListPane::SelectionOf(QList<int> rows) const
{
    std::ranges::sort(rows);
    QItemSelection selection;
    int first = -1;
    for (qsizetype place = 0; place < rows.size(); ++place) {
        const int row = rows[place];
        first = first < 0 ? row : first;
        if (row >= 0 && (place + 1 == rows.size() || rows[place + 1] > row + 1)) {
            selection.append({model()->index(first, 0), model()->index(row, 0)});
            first = -1;
        }
    }
    return selection;
}

void ListPane::GoTo(int currentRow, const QList<int> &rows)
{
    if (currentRow >= 0) {
        setCurrentIndex(model()->index(currentRow, 0));
    }
    selectionModel()->select(SelectionOf(rows),
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// The row below becomes the current one, which a view would not do; and nobody has chosen it, though a
// list of one selection would select it.
void ListPane::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const int current = currentIndex().row();
    if (current >= start && current <= end) {
        const int next = end + 1 < RowCount() ? end + 1 : start - 1;
        selectionModel()->setCurrentIndex(model()->index(next, 0), QItemSelectionModel::NoUpdate);
    }
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
}

void ListPane::SetReading(bool nowReading)
{
    reading = nowReading;
    if (reading) {
        viewport()->setCursor(Qt::BusyCursor);
    } else {
        viewport()->unsetCursor();
    }
    emit ReadingChanged(reading);
}

void ListPane::AwaitRows()
{
    emptyNote->Say({});
}

// Nothing is said of rows that may be on their way.
void ListPane::ShowEmptyNote()
{
    if (reading) {
        AwaitRows();
    } else {
        emptyNote->Say(wasRead ? TextWhenEmpty() : tr("The list could not be read."));
    }
}

void ListPane::TellRead(bool couldBeRead)
{
    wasRead = couldBeRead;
    emit Filled();
}

void ListPane::keyPressEvent(QKeyEvent *event)
{
    const bool isMenuKey = event->key() == Qt::Key_Menu
        || (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (isMenuKey) {
        OpenPopUp(PlaceByKeyboard());
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        CopySelected();
        return;
    }
    switch (event->key()) {
    case Qt::Key_F5:
        RefreshKey();
        return;
    case Qt::Key_Delete:
        DeleteSelected();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        OpenProperties();
        return;
    default:
        MoveByKey(event);
    }
}

void ListPane::MoveByKey(QKeyEvent *event)
{
    if (!ChoosesCurrentRow(*this, *event)) {
        QTreeView::keyPressEvent(event);
    }
}

// Shift selects from the current row on. Without one it would be from the top.
void ListPane::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex clicked = indexAt(event->position().toPoint());
    if (!currentIndex().isValid() && clicked.isValid()) {
        selectionModel()->setCurrentIndex(clicked, QItemSelectionModel::NoUpdate);
    }
    QTreeView::mousePressEvent(event);
}

// A line for each row; a picture by its words.
void ListPane::CopySelected() const
{
    QStringList lines;
    for (const int row : SelectedRows()) {
        QStringList cells;
        for (int place = 0; place < header()->count(); ++place) { // as they were dragged
            const QModelIndex cell = model()->index(row, header()->logicalIndex(place));
            const QVariant shown = cell.data(Qt::DisplayRole);
            cells << OneLine(
                (shown.isValid() ? shown : cell.data(Qt::AccessibleTextRole)).toString());
        }
        lines << cells.join(u'\t');
    }
    if (!lines.isEmpty()) {
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
    }
}

void ListPane::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) {
        OpenProperties();
    }
}

void ListPane::contextMenuEvent(QContextMenuEvent *event)
{
    OpenPopUp(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : PlaceByKeyboard());
}

void ListPane::OpenPopUp(const QPoint &place)
{
    if (SelectedRows().isEmpty()) {
        return;
    }
    HoldTargets();
    QMenu menu(this);
    FillPopUp(menu);
    menu.exec(place);
    ReleaseTargets();
}

// Below the current row; where that is not one of the selected ones, below the first of them.
QPoint ListPane::PlaceByKeyboard() const
{
    const QList<int> rows = SelectedRows();
    const int current = currentIndex().row();
    const int at = rows.isEmpty() || rows.contains(current) ? current : rows.front();
    const QRect row = visualRect(model()->index(at, 0));
    const QRect shown = viewport()->rect();
    const int y = std::clamp(row.bottom(), shown.top(), shown.bottom());
    return viewport()->mapToGlobal(QPoint(row.left() + iconSize().width(), y));
}

void ListPane::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    SelectAgainAfter(event->reason());
    emit Focused();
}

void ListPane::focusOutEvent(QFocusEvent *event)
{
    QTreeView::focusOutEvent(event);
    // A menu borrows the focus for commands on the very rows that are selected.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason) {
        const QList<int> rows = SelectedRows();
        DeselectFirst();
        deselectedRow =
            rows.isEmpty() ? QModelIndex() : QModelIndex(model()->index(rows.front(), 0));
    }
}

// A message, a window or a look at the panel takes nobody out of the choice. Whoever comes back by Tab or
// the mouse goes on from what is seen to be selected.
void ListPane::SelectAgainAfter(Qt::FocusReason reason)
{
    const QModelIndex row = std::exchange(deselectedRow, QPersistentModelIndex());
    if (row.isValid()
        && (reason == Qt::ActiveWindowFocusReason || reason == Qt::ShortcutFocusReason)) {
        selectionModel()->select(row, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

bool ListPane::focusNextPrevChild(bool next)
{
    if (!next) {
        return QTreeView::focusNextPrevChild(next);
    }
    DeselectFirst();
    emit LeftByTab();
    return true;
}

QAction *AddEntry(QMenu &menu, const QString &text, const std::function<void()> &run, bool enabled)
{
    if (!run) {
        return nullptr;
    }
    QAction *action = menu.addAction(text);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, &menu, run);
    return action;
}
