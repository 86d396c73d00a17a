// The rows of an import as a list: all of them, or those of one state.
#pragma once

#include "exchange/import_action.h"

#include <QAbstractTableModel>

#include <memory>

class ImportModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Line, User, State, What, Columns };

    using QAbstractTableModel::QAbstractTableModel;

    void Show(std::shared_ptr<const ImportJob> newJob, std::optional<ImportState> state);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString TextAt(const ImportRow &row, int column) const;

    std::shared_ptr<const ImportJob> job;
    std::vector<size_t> shown; // places of the plan's rows
};
