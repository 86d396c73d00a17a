// The groups list as a table: name, description and access.
#pragma once

#include "access/group_list.h"

#include <QAbstractTableModel>

class GroupListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Description, Access };
    static constexpr int kColumns = Access + 1;

    using QAbstractTableModel::QAbstractTableModel;

    void SetList(const GroupList &newList);
    void RemoveGroup(GroupId groupId);

    [[nodiscard]] GroupId GroupAt(int row) const { return list.rowGroupIds[row]; }
    [[nodiscard]] const QString &NameAt(int row) const { return list.rows[row].name; }

    // -1 when the group is not listed.
    [[nodiscard]] int RowOf(GroupId groupId) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    GroupList list;
};
