// The users list as a table of its visible columns.
#pragma once

#include "access/user_list.h"
#include "ui/main/user_columns.h"

#include <QAbstractTableModel>

// What a cell says, for who cannot see pictures.
[[nodiscard]] QString CellWords(const UserRow &row, UserColumn column);

class UserListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    // Drops all rows.
    void SetColumns(const QList<UserColumn> &shown);
    void SetList(const UserList &newList);
    void RemoveUser(UserId userId);

    [[nodiscard]] UserColumn ColumnAt(int column) const { return columns[column]; }
    [[nodiscard]] UserId UserAt(int row) const { return list.rowUserIds[row]; }

    // -1 when the user is not listed.
    [[nodiscard]] int RowOf(UserId userId) const;

    // The first row whose first column begins with `text`, in any letter case; -1 for none.
    [[nodiscard]] int FindPrefix(const QString &text) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QList<UserColumn> columns;
    UserList list;
};
