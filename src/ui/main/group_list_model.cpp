#include "ui/main/group_list_model.h"

#include "ui/common/icons.h"
#include "ui/main/access_picture.h"

using namespace Qt::StringLiterals;

int GroupListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant GroupListModel::data(const QModelIndex &index, int role) const
{
    const GroupRow &row = Rows().rows[index.row()];
    if (index.column() == Access) {
        return AccessCellData(row.blocked ? AccessState::Blocked : AccessState::Allowed, role);
    }
    if (role == Qt::DisplayRole) {
        return index.column() == Name ? row.name : row.description;
    }
    if (role == Qt::DecorationRole && index.column() == Name) {
        return IconOf(Picture::Group);
    }
    return {};
}

QVariant GroupListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QString headers[kColumns] = {tr("Group Name"), tr("Description"), tr("Access")};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < kColumns) {
        return headers[section];
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}
