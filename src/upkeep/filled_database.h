// An empty database on its way to hold a site's rows, for a restore or a copy.
#pragma once

#include "db/direct_connection.h"
#include "upkeep/site_rows.h"

#include <memory>

class FilledDatabase
{
public:
    // Opens the data source, and refuses it while anybody else is connected, or when it holds tables. Those
    // that a broken-off work has left are no obstacle. Changes nothing, but makes a database that is a file.
    [[nodiscard]] static Told<std::unique_ptr<FilledDatabase>> Open(const QString &dsn);

    // Makes the tables in the rows' version, writes all rows, reads them back and compares each with its
    // source. From the first change to the last comparison every program refuses the database as not
    // whole; it stays so after a failure. `tell` hears of the steps, and of each table's sum.
    [[nodiscard]] Told<void> Fill(SiteRows &source, const Tell &tell);

private:
    [[nodiscard]] Told<void> Begin(const QString &dsn);
    [[nodiscard]] Told<void> Check(bool done) const;
    [[nodiscard]] Told<void> RunAll(const QStringList &statements);
    [[nodiscard]] Told<void> Transact(const QStringList &statements);
    [[nodiscard]] Told<void> MakeTables(const Site &site, const Tell &tell);
    [[nodiscard]] Told<void> LoadAll(SiteRows &source, const Tell &tell);
    [[nodiscard]] Told<void> Load(SiteRows &source, size_t index);
    [[nodiscard]] Told<void> Complete(const Site &site, const Tell &tell);
    [[nodiscard]] Told<void> CompareAll(SiteRows &source, const Tell &tell);
    [[nodiscard]] Told<void> Compare(SiteRows &source, size_t index, const Tell &tell);

    DirectConnection database;
    bool isBrokenOff = false; // what it holds was not filled to its end
};
