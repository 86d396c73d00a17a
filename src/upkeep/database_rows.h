// The rows of a database as they were at one moment, while other programs go on writing.
#pragma once

#include "db/direct_connection.h"
#include "db/table_reader.h"
#include "upkeep/site_rows.h"

#include <memory>

class DatabaseRows : public SiteRows
{
public:
    // Opens the data source and begins the snapshot. A database that is newer than the program, not whole,
    // or without tables is refused.
    [[nodiscard]] static Told<std::unique_ptr<DatabaseRows>> Open(const QString &dsn);

    [[nodiscard]] Told<RowBlock> Next(size_t table) override;
    [[nodiscard]] Told<void> Rewind() override;

private:
    [[nodiscard]] Told<void> Begin(const QString &dsn);
    [[nodiscard]] Told<SiteTable> Look(const TableShape &shape);

    DirectConnection database;
    std::unique_ptr<TableReader> reader;
    size_t readerTable = 0;
};
