// The rows of a list of the main window, each known by the id of its record. What is read anew is taken
// over row by row: a view keeps its current row, its selection and its place on the rows that stay.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QSet>

#include <utility>

// `List` holds `rows`, and beside them the ids that `idsOf` names.
template <typename List, typename IdType, QList<IdType> List::*idsOf>
class IdTableModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    // Takes rows out, puts rows in and moves rows until they are those of `newList`.
    void SetList(const List &newList)
    {
        const QList<IdType> wanted = newList.*idsOf;
        if (wanted != Ids()) { // mostly only values have changed
            ArrangeFor(newList, wanted);
        }
        TakeValues(newList);
    }

    void RemoveRowOf(IdType id)
    {
        if (const int row = RowOf(id); row >= 0) {
            RemoveRows(row, row);
        }
    }

    [[nodiscard]] IdType IdAt(int row) const { return Ids()[row]; }

    // -1 when the id is not listed.
    [[nodiscard]] int RowOf(IdType id) const { return static_cast<int>(Ids().indexOf(id)); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(list.rows.size());
    }

protected:
    [[nodiscard]] const List &Rows() const { return list; }

    // To be called while the model is being reset.
    void Clear() { list = {}; }

private:
    [[nodiscard]] const QList<IdType> &Ids() const { return list.*idsOf; }

    void ArrangeFor(const List &newList, const QList<IdType> &wanted)
    {
        QHash<IdType, int> places;
        for (const IdType id : wanted) {
            places.insert(id, static_cast<int>(places.size()));
        }
        RemoveAllBut(places);
        AppendMissing(newList);
        MoveTo(places);
    }

    // Tells of the rows from the first to the last whose values differ: for each row that is told of a
    // view asks for every one of its cells.
    void TakeValues(const List &newList)
    {
        int first = 0;
        int last = rowCount() - 1;
        while (first <= last && list.rows[first] == newList.rows[first]) {
            ++first;
        }
        while (last > first && list.rows[last] == newList.rows[last]) {
            --last;
        }
        list = newList;
        if (first <= last) {
            emit this->dataChanged(index(first, 0), index(last, columnCount() - 1));
        }
    }

    void RemoveRows(int first, int last)
    {
        this->beginRemoveRows({}, first, last);
        list.rows.remove(first, last - first + 1);
        (list.*idsOf).remove(first, last - first + 1);
        this->endRemoveRows();
    }

    void RemoveAllBut(const QHash<IdType, int> &places)
    {
        int last = rowCount() - 1;
        while (last >= 0) {
            int first = last;
            while (first >= 0 && !places.contains(IdAt(first))) {
                --first;
            }
            if (first < last) {
                RemoveRows(first + 1, last);
            }
            last = first - 1;
        }
    }

    void AppendMissing(const List &newList)
    {
        const QSet<IdType> present(Ids().begin(), Ids().end());
        List missing;
        for (qsizetype row = 0; row < newList.rows.size(); ++row) {
            const IdType id = (newList.*idsOf)[row];
            if (!present.contains(id)) {
                missing.rows << newList.rows[row];
                (missing.*idsOf) << id;
            }
        }
        if (!missing.rows.isEmpty()) {
            const int first = rowCount();
            this->beginInsertRows({}, first, first + static_cast<int>(missing.rows.size()) - 1);
            list.rows += missing.rows;
            (list.*idsOf) += missing.*idsOf;
            this->endInsertRows();
        }
    }

    void MoveTo(const QHash<IdType, int> &places)
    {
        bool stand = true;
        for (int row = 0; stand && row < rowCount(); ++row) {
            stand = places.value(IdAt(row)) == row;
        }
        if (stand) {
            return;
        }
        emit this->layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
        const QModelIndexList from = this->persistentIndexList();
        QModelIndexList to;
        for (const QModelIndex &cell : from) {
            to << index(places.value(IdAt(cell.row())), cell.column());
        }
        this->changePersistentIndexList(from, to);
        Sort(places);
        emit this->layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    }

    void Sort(const QHash<IdType, int> &places)
    {
        List sorted = list;
        for (int row = 0; row < rowCount(); ++row) {
            const int place = places.value(IdAt(row));
            sorted.rows[place] = list.rows[row];
            (sorted.*idsOf)[place] = IdAt(row);
        }
        list = std::move(sorted);
    }

    List list;
};
