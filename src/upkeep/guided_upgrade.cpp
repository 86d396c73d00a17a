#include "upkeep/guided_upgrade.h"

#include "db/schema_upgrade.h"
#include "upkeep/nobody_else.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GuidedUpgrade)
};

Told<void> AsTold(const UpgradeOutcome &outcome)
{
    return outcome.end == UpgradeOutcome::End::Done ? Told<void>()
                                                    : tl::unexpected(outcome.problem);
}

Told<void> BackUp(const UpgradeWish &wish, const Tell &tell)
{
    if (!wish.backup) {
        return {};
    }
    tell(Words::tr("Making the backup..."));
    const Tell quiet = [](const QString &) {};
    return MakeBackup(*wish.backup, quiet)
        .map([&] { tell(Words::tr("The backup is in %1.").arg(wish.backup->file)); })
        .map_error([](const QString &problem) -> QString {
            return Words::tr("The backup was not made: %1").arg(problem);
        });
}

} // namespace

Told<QStringList> LookAtUpgrade(const QString &dsn)
{
    QStringList lines;
    return AsTold(UpgradeSchema(
                      dsn, UpgradeMode::DryRun, [&lines](const QString &line) { lines << line; }))
        .map([&lines] { return lines; });
}

Told<void> UpgradeAlone(const UpgradeWish &wish, const Tell &tell)
{
    return NobodyNeedsOlderTables(wish.dsn)
        .and_then([&] { return BackUp(wish, tell); })
        .and_then([&] { return AsTold(UpgradeSchema(wish.dsn, UpgradeMode::Run, tell)); });
}
