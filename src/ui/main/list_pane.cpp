#include "ui/main/list_pane.h"

#include "reports/cell.h"

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
    setIconSize(QSize(16, 16));
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header()->setSectionsMovable(false);
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
    connect(selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &ListPane::SelectionChanged);
    connect(model, &QAbstractItemModel::modelReset, this, &ListPane::SelectionChanged);
}

void ListPane::Refill(const std::function<void()> &fill, const std::function<QList<int>()> &chosen)
{
    const int scrolledTo = verticalScrollBar()->value();
    fill();
    QItemSelection selection;
    for (const int row : chosen()) {
        if (row >= 0) {
            selection.append(QItemSelectionRange(model()->index(row, 0)));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(scrolledTo);
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

void ListPane::TellRead(bool couldBeRead)
{
    wasRead = couldBeRead;
    emit Filled();
}

void ListPane::keyPressEvent(QKeyEvent *event)
{
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
        QTreeView::keyPressEvent(event);
    }
}

// A line for each row; a picture by its words.
void ListPane::CopySelected() const
{
    QStringList lines;
    for (const int row : SelectedRows()) {
        QStringList cells;
        for (int column = 0; column < model()->columnCount(); ++column) {
            const QModelIndex cell = model()->index(row, column);
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
    if (SelectedRows().isEmpty()) {
        return;
    }
    QMenu menu(this);
    FillPopUp(menu);
    menu.exec(PlaceOfMenu(*event));
}

// At the mouse; asked for by the keyboard, below the first selected row.
QPoint ListPane::PlaceOfMenu(const QContextMenuEvent &event) const
{
    if (event.reason() == QContextMenuEvent::Mouse) {
        return event.globalPos();
    }
    const QRect row = visualRect(model()->index(SelectedRows().front(), 0));
    const QRect shown = viewport()->rect();
    const int y = std::clamp(row.bottom(), shown.top(), shown.bottom());
    return viewport()->mapToGlobal(QPoint(row.left() + iconSize().width(), y));
}

void ListPane::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    emit Focused();
}

void ListPane::focusOutEvent(QFocusEvent *event)
{
    QTreeView::focusOutEvent(event);
    // A menu borrows the focus for commands on the very rows that are selected.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason) {
        DeselectFirst();
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
