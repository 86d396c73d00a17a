#include "ui/exchange/import_model.h"

#include "ui/common/icons.h"

#include <QLocale>

#include <utility>

namespace {

Picture PictureOf(ImportState state)
{
    switch (state) {
    case ImportState::New:
        return Picture::Add;
    case ImportState::Changed:
        return Picture::Edit;
    case ImportState::Unchanged:
        return Picture::User;
    case ImportState::Refused:
        break;
    }
    return Picture::AccessBlocked;
}

} // namespace

void ImportModel::Show(std::shared_ptr<const ImportJob> newJob, std::optional<ImportState> state)
{
    beginResetModel();
    job = std::move(newJob);
    shown.clear();
    for (size_t place = 0; place < job->plan.rows.size(); ++place) {
        if (!state || job->plan.rows[place].state == *state) {
            shown.push_back(place);
        }
    }
    endResetModel();
}

int ImportModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

int ImportModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant ImportModel::data(const QModelIndex &index, int role) const
{
    const ImportRow &row = job->plan.rows[shown[static_cast<size_t>(index.row())]];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return TextAt(row, index.column());
    }
    if (role == Qt::DecorationRole && index.column() == State) {
        return IconOf(PictureOf(row.state));
    }
    if (role == Qt::TextAlignmentRole && index.column() == Line) {
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    }
    return {};
}

QString ImportModel::TextAt(const ImportRow &row, int column) const
{
    switch (column) {
    case Line:
        return QLocale().toString(row.line);
    case User:
        return row.name;
    case State:
        return TextOf(row.state);
    default:
        return WordsFor(row);
    }
}

QVariant ImportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    switch (section) {
    case Line:
        return tr("Line");
    case User:
        return tr("User");
    case State:
        return tr("State");
    default:
        return tr("What is changed, or why it is refused");
    }
}
