// What does not fit together in a database: rows that point nowhere or contradict each other.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct CheckResult
{
    // Plain sentences, each with a count.
    QStringList findings; // what is wrong; empty when all is well
    // What the console leaves behind by design, such as records of a deleted user; and that the tables
    // are of an older version, of which those that it has are checked.
    QStringList notes;
    std::optional<QString> failure; // why the check could not be completed
    bool isRefused =
        false; // since the tables are of a newer version than the program, or not whole
};

// What each finding and each note says behind its count.
[[nodiscard]] QStringList CheckSentences();

// Looks through the whole database of the data source and changes nothing.
[[nodiscard]] CheckResult CheckDatabase(const QString &dsn);
