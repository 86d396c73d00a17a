// Sums that lose nothing: whole numbers exactly, amounts with the rounding of each step made good.
#pragma once

#include "reports/cell.h"

#include <cmath>

class Total
{
public:
    void Add(const Cell &cell)
    {
        if (const auto *number = std::get_if<qint64>(&cell)) {
            Add(*number);
        } else if (const auto *value = std::get_if<double>(&cell)) {
            Add(*value);
        }
    }

    void Add(qint64 number)
    {
        qint64 sum = 0;
        if (__builtin_add_overflow(whole, number, &sum)) {
            Add(static_cast<double>(number));
        } else {
            whole = sum;
        }
    }

    void Add(double value)
    {
        const double next = amount + value;
        lost +=
            std::abs(amount) >= std::abs(value) ? (amount - next) + value : (value - next) + amount;
        amount = next;
        hasAmount = true;
    }

    [[nodiscard]] double Value() const { return static_cast<double>(whole) + (amount + lost); }

    // A whole number for a column of such, unless the sum has outgrown them.
    [[nodiscard]] Cell AsCell(ColumnType type) const
    {
        return type != ColumnType::Amount && !hasAmount ? Cell(whole) : Cell(Value());
    }

private:
    qint64 whole = 0;
    double amount = 0;
    double lost = 0; // what rounding took off `amount`
    bool hasAmount = false;
};

// The totals of a set of rows, one for each column that has one.
class RowTotals
{
public:
    explicit RowTotals(const QList<LayoutColumn> &ofColumns)
        : columns(&ofColumns)
        , totals(static_cast<size_t>(ofColumns.size()))
    { }

    void Add(const CellRow &row)
    {
        for (size_t place = 0; place < totals.size(); ++place) {
            if (columns->at(static_cast<qsizetype>(place)).total) {
                totals[place].Add(row[place]);
            }
        }
    }

    // Nothing in the columns without a total; a computed column is computed from the totals.
    [[nodiscard]] CellRow Cells() const
    {
        CellRow row(totals.size());
        for (size_t place = 0; place < totals.size(); ++place) {
            row[place] = totals[place].AsCell(columns->at(static_cast<qsizetype>(place)).type);
        }
        Compute(*columns, row);
        for (size_t place = 0; place < totals.size(); ++place) {
            if (!columns->at(static_cast<qsizetype>(place)).total) {
                row[place] = {};
            }
        }
        return row;
    }

private:
    const QList<LayoutColumn> *columns;
    std::vector<Total> totals;
};
