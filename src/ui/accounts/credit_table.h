// The list of an account's credits: numbered rows of text, one of them selected.
#pragma once

#include "accounts/credit_columns.h"

#include <QTreeWidget>

class CreditTable : public QTreeWidget
{
    Q_OBJECT

public:
    // `headers` stand above the columns, each above its own. `emptyText` stands in the list while it
    // has no rows.
    CreditTable(const QList<CreditColumn> &columns,
                const QStringList &headers,
                const QString &emptyText,
                QWidget *parent);

    // Replaces all rows by these cells of the columns after "N"; no row is selected then.
    void SetRows(const QList<QStringList> &rows);

    // Counted from 0; -1 while nothing is selected.
    [[nodiscard]] int SelectedRow() const;

    // Selects the row, if there is such a one, and scrolls to it.
    void Select(int row);

    [[nodiscard]] QSize sizeHint() const override;

private:
    void FitColumns();

    int columnsWidth = 0;
};
