#include "db/schema_upgrade.h"

#include "db/direct_connection.h"
#include "db/group_keys.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "db/translation.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SchemaUpgrade)
};

UpgradeOutcome Failed(const QString &problem)
{
    return {UpgradeOutcome::End::Failed, problem};
}

bool RunAll(DirectConnection &database, const QStringList &statements)
{
    return std::all_of(statements.cbegin(), statements.cend(), [&](const QString &statement) {
        return database.Run(statement);
    });
}

// What a step does that no statement says.
bool RunWork(DirectConnection &database, const SchemaStep &step)
{
    return step.number != kGroupKeysVersion || MakeGroupKeys(database);
}

// Within the transaction the version is read once more: another upgrade may have got there first. False
// when it failed, with nothing rolled back yet.
bool Transact(DirectConnection &database, const SchemaStep &step)
{
    if (!database.Run(QString::fromLatin1(database.Engine().begin))) {
        return false;
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return false;
    }
    const bool done = *version >= step.number
        || (RunAll(database, step.statements) && RunWork(database, step)
            && RunAll(database, VersionStatements(step.number)));
    return done && database.Run(u"COMMIT"_s);
}

// Two upgrades that run the same step meet at its table or at its number: the later one fails there, and
// then finds that all is done. Nothing when it is, else why it is not.
std::optional<QString> RunStep(DirectConnection &database, const SchemaStep &step)
{
    if (Transact(database, step)) {
        return std::nullopt;
    }
    const QString reason = database.Error();
    const bool isFree = database.Run(u"ROLLBACK"_s);
    return isFree && SchemaVersionOf(database) >= step.number ? std::nullopt
                                                              : std::optional(reason);
}

// Tells of the step, and of each row that is not going to be what it was. Nothing, or why that cannot be
// told.
std::optional<QString> Announce(DirectConnection &database,
                                const SchemaStep &step,
                                const std::function<void(QString)> &tell)
{
    tell(Words::tr("step %1: %2").arg(step.number).arg(step.name));
    if (step.number != kGroupKeysVersion) {
        return std::nullopt;
    }
    const auto twins = TwinsOfGroups(database);
    if (!twins) {
        return database.Error();
    }
    for (const GroupRename &twin : *twins) {
        tell(twin.InWords());
    }
    return std::nullopt;
}

// Nothing when tables of this version can be upgraded.
std::optional<UpgradeOutcome> Obstacle(int version)
{
    const auto refused = RefusedSchemaText(version);
    if (refused && AgeOf(version) == SchemaAge::None) {
        return Failed(*refused);
    }
    return refused ? std::optional(UpgradeOutcome {UpgradeOutcome::End::Newer, *refused})
                   : std::nullopt;
}

} // namespace

UpgradeOutcome
UpgradeSchema(const QString &dsn, UpgradeMode mode, const std::function<void(QString)> &tell)
{
    DirectConnection database;
    if (!database.Open(dsn)) {
        return Failed(
            Words::tr("The data source \"%1\" cannot be opened: %2").arg(dsn, database.Error()));
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return Failed(Words::tr("The version of the tables of \"%1\" cannot be read: %2")
                          .arg(dsn, database.Error()));
    }
    if (auto obstacle = Obstacle(*version)) {
        return *std::move(obstacle);
    }
    tell(Words::tr("The tables of \"%1\" have version %2; this program is made for version %3.")
             .arg(dsn, QString::number(*version), QString::number(NewestSchema())));
    for (const SchemaStep &step : SchemaSteps(database.Engine())) {
        if (step.number <= *version) {
            continue;
        }
        auto problem = Announce(database, step, tell);
        if (!problem && mode == UpgradeMode::Run) {
            problem = RunStep(database, step);
        }
        if (problem) {
            return Failed(Words::tr("Step %1 failed: %2").arg(step.number).arg(*problem));
        }
    }
    return {};
}
