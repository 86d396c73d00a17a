#include "ui/accounts/credit_table.h"

#include "ui/common/accessible.h"
#include "ui/common/empty_note.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

CreditTable::CreditTable(const QList<CreditColumn> &columns,
                         const QStringList &headers,
                         const QString &textWhenEmpty,
                         QWidget *parent)
    : QTreeWidget(parent)
{
    SetNames(*this, u"credits"_s, tr("Credits"));
    setHeaderLabels(headers);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    new EmptyNote(*this, textWhenEmpty);
    header()->setSectionsMovable(false);
    for (int column = 0; column < columns.size(); ++column) {
        const auto side = HoldsFigures(columns.at(column)) ? Qt::AlignRight : Qt::AlignLeft;
        headerItem()->setTextAlignment(column, side | Qt::AlignVCenter);
    }
}

void CreditTable::SetRows(const QList<QStringList> &rows)
{
    clear();
    QList<QTreeWidgetItem *> items;
    for (int row = 0; row < rows.size(); ++row) {
        items << new QTreeWidgetItem(QStringList(QString::number(row + 1)) + rows.at(row));
        for (int column = 0; column < columnCount(); ++column) {
            items.last()->setTextAlignment(column,
                                           Qt::Alignment(headerItem()->textAlignment(column)));
        }
    }
    addTopLevelItems(items);
    FitColumns();
}

void CreditTable::FitColumns()
{
    const int room = fontMetrics().averageCharWidth() * 2;
    columnsWidth = 0;
    for (int column = 0; column < columnCount(); ++column) {
        const int width = qMax(sizeHintForColumn(column), header()->sectionSizeHint(column)) + room;
        setColumnWidth(column, width);
        columnsWidth += width;
    }
    updateGeometry();
}

int CreditTable::SelectedRow() const
{
    const auto selected = selectedItems();
    return selected.isEmpty() ? -1 : indexOfTopLevelItem(selected.first());
}

void CreditTable::Select(int row)
{
    if (QTreeWidgetItem *item = topLevelItem(row)) {
        setCurrentItem(item);
        scrollToItem(item);
    }
}

QSize CreditTable::sizeHint() const
{
    const int line = fontMetrics().height() * 3 / 2;
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {columnsWidth + bar + 2 * frameWidth() + line, line * 14};
}
