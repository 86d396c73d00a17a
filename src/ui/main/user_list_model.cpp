#include "ui/main/user_list_model.h"

#include "ui/common/icons.h"
#include "ui/main/access_picture.h"
#include "ui/main/account_bar.h"

#include <algorithm>

namespace {

QString CellText(const UserRow &row, UserColumn column, const WordsStyle &style)
{
    switch (column) {
    case UserColumn::UserName:
        return row.userName;
    case UserColumn::IpAddress:
        return row.ipAddress;
    case UserColumn::Workstation:
        return row.stationName;
    case UserColumn::FullName:
        return row.fullName;
    case UserColumn::MacAddress:
        return row.macAddress;
    case UserColumn::Group:
        return row.groupName;
    case UserColumn::Used:
        return UsedText(row.use, style);
    case UserColumn::Left:
        return LeftText(row.use, style);
    case UserColumn::Access:
        break;
    }
    return {};
}

// Of what was used and is left together; not valid where that is not known or without a bound.
QVariant UsedShare(const UserRow &row)
{
    if (!row.use || !row.use->left) {
        return {};
    }
    const double left = *row.use->left;
    return left > 0 ? row.use->used / (row.use->used + left) : 1.0;
}

QVariant AccountCellData(const UserRow &row, UserColumn column, int role)
{
    const QVariant used = UsedShare(row);
    if (column == UserColumn::Used && role == kUsedShareRole) {
        return used;
    }
    return column == UserColumn::Left && role == kLeftShareRole && used.isValid()
        ? QVariant(1.0 - used.toDouble())
        : QVariant();
}

} // namespace

QString CellWords(const UserRow &row, UserColumn column, const WordsStyle &style)
{
    return column == UserColumn::Access
        ? AccessCellData(row.access, Qt::AccessibleTextRole).toString()
        : CellText(row, column, style);
}

void UserListModel::SetColumns(const QList<UserColumn> &shown)
{
    beginResetModel();
    columns = shown;
    Clear();
    endResetModel();
}

bool UserListModel::HasMacAddresses() const
{
    return std::ranges::any_of(Rows().rows,
                               [](const UserRow &row) { return !row.macAddress.isEmpty(); });
}

QString UserListModel::NameAt(int row) const
{
    const UserRow &user = Rows().rows[row];
    const QString texts[] = {user.userName, user.fullName, user.stationName, user.ipAddress};
    const auto found =
        std::ranges::find_if(texts, [](const QString &text) { return !text.trimmed().isEmpty(); });
    return found == std::end(texts) ? QString() : *found;
}

int UserListModel::FindPrefix(const QString &text) const
{
    const auto found = std::ranges::find_if(Rows().rows, [&](const UserRow &row) {
        return CellText(row, columns.front(), style).startsWith(text, Qt::CaseInsensitive);
    });
    return found == Rows().rows.end() ? -1 : static_cast<int>(found - Rows().rows.begin());
}

int UserListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

Qt::ItemFlags UserListModel::flags(const QModelIndex &index) const
{
    return IdTableModel::flags(index) | Qt::ItemIsDragEnabled;
}

QVariant UserListModel::data(const QModelIndex &index, int role) const
{
    const UserRow &row = Rows().rows[index.row()];
    const UserColumn column = columns[index.column()];
    if (column == UserColumn::Access) {
        return AccessCellData(row.access, role);
    }
    if (role == Qt::DisplayRole) {
        return CellText(row, column, style);
    }
    if (IsOfAccount(column)) {
        return role == Qt::TextAlignmentRole ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                             : AccountCellData(row, column, role);
    }
    if (role == Qt::DecorationRole && index.column() == 0) {
        return IconOf(Picture::User);
    }
    return {};
}

QVariant UserListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < columns.size()) {
        return HeaderText(columns[section]);
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}
