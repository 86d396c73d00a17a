// The users list as a table of its visible columns.
#pragma once

#include "access/access_words.h"
#include "access/user_list.h"
#include "ui/main/id_table_model.h"
#include "ui/main/user_columns.h"

// What a cell says, for who cannot see pictures.
[[nodiscard]] QString CellWords(const UserRow &row, UserColumn column, const WordsStyle &style);

class UserListModel : public IdTableModel<UserList, UserId, &UserList::rowUserIds>
{
    Q_OBJECT

public:
    using IdTableModel::IdTableModel;

    // Drops all rows.
    void SetColumns(const QList<UserColumn> &shown);

    // How figures of accounts are written from now on.
    void SetStyle(const WordsStyle &newStyle) { style = newStyle; }

    [[nodiscard]] UserColumn ColumnAt(int column) const { return columns[column]; }

    // -1 for a column that is not shown.
    [[nodiscard]] int SectionOf(UserColumn column) const
    {
        return static_cast<int>(columns.indexOf(column));
    }

    [[nodiscard]] bool HasMacAddresses() const;

    // The user's name, whatever columns are shown; where it is blank, what else tells who it is.
    [[nodiscard]] QString NameAt(int row) const;

    // The first row whose first column begins with `text`, in any letter case; -1 for none.
    [[nodiscard]] int FindPrefix(const QString &text) const;

    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QList<UserColumn> columns;
    WordsStyle style;
};
