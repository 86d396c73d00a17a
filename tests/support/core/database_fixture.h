// A fresh SQLite database behind the one session, for each test.
#pragma once

#include "db/session.h"

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

class DatabaseFixture : public testing::Test
{
protected:
    // A new database with the product's schema and its first rows; the session is open on it.
    void SetUp() override;
    void TearDown() override;

    // The data source's name, for a second session or a `bill dsn` value.
    [[nodiscard]] static QString Dsn();

    // The database itself.
    [[nodiscard]] static QString DatabaseFile();

    QTemporaryDir folder; // for the test's own files
};

// The rows that a query gives, each as its columns joined with "|". It is read on a connection of its
// own: the session, its current row and its open cursor stay as they are.
[[nodiscard]] QStringList RowsOf(const char *sqlText);

// Every row of every table as text, to compare a database before and after.
[[nodiscard]] QStringList EveryRow();
