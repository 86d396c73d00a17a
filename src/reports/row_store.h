// The rows of a report, of which there may be millions: kept in a temporary file that has no name.
#pragma once

#include "reports/cell.h"

#include <QByteArray>

#include <atomic>
#include <optional>

// Appending belongs to one thread; once finished, any number of threads may read at the same time.
class RowStore
{
public:
    RowStore() = default;
    ~RowStore();
    RowStore(const RowStore &) = delete;
    RowStore &operator=(const RowStore &) = delete;

    // False when the temporary folder is full or cannot be written; Problem() then says why.
    [[nodiscard]] bool Append(const CellRow &row);
    [[nodiscard]] bool Finish(); // after the last row; as Append

    [[nodiscard]] qint64 Count() const { return count; }

    // The rows from `first`, fewer than `wanted` at the end. Fast for rows that follow each other. None
    // where one of them cannot be read, of which ReadProblem() tells.
    [[nodiscard]] std::vector<CellRow> Read(qint64 first, qint64 wanted) const;

    [[nodiscard]] const QString &Problem() const { return problem; }

    // Why rows could not be read, once that has happened, from any thread; empty while all could. What was
    // made of the rows is then not whole.
    [[nodiscard]] QString ReadProblem() const;

private:
    [[nodiscard]] bool Open();
    [[nodiscard]] bool Flush();
    // Nothing when the file cannot be read.
    [[nodiscard]] std::optional<QByteArray> BytesFrom(qint64 stride, qint64 strides) const;

    int file = -1; // not opened while all rows fit into the buffer
    QByteArray buffer; // rows not yet written
    qint64 written = 0; // bytes in the file
    qint64 count = 0;
    std::vector<qint64> strideStarts; // where every 64th row begins
    QString problem;
    mutable std::atomic<int> readError = 0; // the system's number of the first one
};
