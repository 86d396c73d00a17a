// All that a site stores, wherever it lies: in a database or in a backup.
#pragma once

#include "db/row_block.h"
#include "upkeep/told.h"

#include <vector>

struct SiteTable
{
    TableShape shape;
    qint64 rows = 0;
    qint64 nextNumber = 0; // for the next row, of a table whose rows the engine numbers
};

struct Site
{
    QString engine; // as its driver names it, in part
    int version = 0; // of the tables
    std::vector<SiteTable> tables;
};

// The rows of one state of a site.
class SiteRows
{
public:
    SiteRows() = default;
    virtual ~SiteRows() = default;
    SiteRows(const SiteRows &) = delete;
    SiteRows &operator=(const SiteRows &) = delete;

    [[nodiscard]] const Site &About() const { return site; }

    // The next rows of the table of that index, in the order of its key; none behind the last. The tables
    // are read one after the other, each to its end.
    [[nodiscard]] virtual Told<RowBlock> Next(size_t table) = 0;

    // Begins again with the first table, of the same state.
    [[nodiscard]] virtual Told<void> Rewind() = 0;

protected:
    Site site;
};
