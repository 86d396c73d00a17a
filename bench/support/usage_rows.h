// Traffic records by the million.
#pragma once

#include <QDate>
#include <QString>

struct UsageRows
{
    int count = 0;
    QDate firstDay;
    int perDay = 1;
    int users = 500; // the records are those of the users 1 to this in turn
};

// Puts these records, written by the engine itself, in place of all that the data source holds.
void FillUsage(const QString &engine, const QString &dsn, const UsageRows &rows);
