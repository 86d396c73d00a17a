// Many rows of numbers as one value of a statement: STAGED (?) AS_ROWS, see dialect.h. One statement
// then reads or changes thousands of rows of a table.
#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>

class StagedRows
{
public:
    // A row of the columns k, n1 to n4, t, u and v. What is left out is NULL. Whole numbers up to 2^53
    // reach every engine as they are; of others the last digit may be rounded. A text has no NUL in
    // it: not every engine would take that. For a statement that changes the rows of a table each key
    // is added once: of several, the engines would use any.
    void Add(quint32 key,
             std::initializer_list<double> numbers = {},
             std::initializer_list<QString> texts = {});

    [[nodiscard]] bool IsEmpty() const { return rows.isEmpty(); }

    // As a JSON array of arrays.
    [[nodiscard]] QByteArray Text() const { return '[' + rows + ']'; }

    bool operator==(const StagedRows &) const = default;

private:
    QByteArray rows; // parted by commas
};
