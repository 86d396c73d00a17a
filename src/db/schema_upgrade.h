// Brings the tables of an older database up to date by the numbered steps.
#pragma once

#include <QString>

#include <functional>

struct UpgradeOutcome
{
    enum class End {
        Done, // or there was nothing to do
        Newer, // of a newer program, or not whole: nothing was changed
        Failed, // the steps before the one that failed are kept
    };

    End end = End::Done;
    QString problem; // in words, unless it is done
};

enum class UpgradeMode { Run, DryRun };

// Runs each step that the data source's database has not behind it, all of it or nothing in one
// transaction; MariaDB keeps each statement by itself, and a step that broke off there is run again from
// its beginning the next time. Upgrades may run at the same time. `tell` hears of the versions, of
// each step before it is run, and of each row that the step renames; a dry run does no more than that.
[[nodiscard]] UpgradeOutcome
UpgradeSchema(const QString &dsn, UpgradeMode mode, const std::function<void(QString)> &tell);
