// A report's rows as a table that is sorted by its headings and narrowed by what is typed.
#pragma once

#include "reports/row_choice.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QTimer>
#include <QWidget>

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;

// The chosen rows of a table, read as they come into sight. A cell that cannot be read says so.
class RowModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void Show(const ReportTablePtr &newTable, ChosenRows newChosen);

    [[nodiscard]] const ChosenRows &Chosen() const { return chosen; }

    // Column of the layout.
    [[nodiscard]] int ColumnAt(int place) const { return columns.value(place, RowWish::kNone); }

    // Where that column stands; -1 for none.
    [[nodiscard]] int PlaceOf(int column) const
    {
        return static_cast<int>(columns.indexOf(column));
    }

    // The shown row's cells, until the next row is asked for; null when they cannot be read.
    [[nodiscard]] const CellRow *RowAt(int place) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ReportTablePtr table;
    ChosenRows chosen;
    QList<int> columns; // of the layout, from left to right
    mutable QCache<quint32, CellRow> read {4096};
};

// Asks for rows by Wished(), for which it waits; what comes is put in by Show().
class RowTable : public QWidget
{
    Q_OBJECT

public:
    explicit RowTable(QWidget *parent = nullptr);

    // Another report, of which no row shows yet, and which of them are wished for; null for none.
    void SetTable(const ReportTablePtr &newTable, const RowWish &wish = {});
    void Show(ChosenRows chosen);

    [[nodiscard]] RowWish Wish() const;

    void StartFilter();

signals:
    void Wished();
    void RowOpened(qint64 row); // of the table, by a double click or Return
    void Told(const QString &text); // what a copy lacks of the selected rows; empty for nothing

private:
    void MakeFilterRow(QBoxLayout &column);
    void Copy();
    [[nodiscard]] std::optional<QString> TextOf(const std::vector<int> &places) const;
    [[nodiscard]] std::vector<int> SelectedPlaces() const;
    void OpenCurrent();

    ReportTablePtr table;
    bool isFresh = true; // no row of it was shown yet
    RowModel *model;
    QLineEdit *filter;
    QComboBox *where;
    QTableView *view;
    QLabel *sums;
    QTimer pause; // of who types
};
