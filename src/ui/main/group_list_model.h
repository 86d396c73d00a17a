// The groups list as a table: name, description and access.
#pragma once

#include "access/group_list.h"
#include "ui/main/id_table_model.h"

class GroupListModel : public IdTableModel<GroupList, GroupId, &GroupList::rowGroupIds>
{
    Q_OBJECT

public:
    enum Column { Name, Description, Access };
    static constexpr int kColumns = Access + 1;

    using IdTableModel::IdTableModel;

    [[nodiscard]] const QString &NameAt(int row) const { return Rows().rows[row].name; }

    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;
};
