// What is inconsistent in a database: rows that point nowhere, and rows that contradict each other.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct CheckResult
{
    QStringList findings; // plain sentences, each with a count; empty when all is well
    std::optional<QString> failure; // why the check could not be completed
};

// Looks through the whole database of the data source and changes nothing.
[[nodiscard]] CheckResult CheckDatabase(const QString &dsn);
