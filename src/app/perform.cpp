#include "app/perform.h"

#include "access/block_commands.h"
#include "app/answering.h"
#include "startup/rights.h"

namespace {

void KeepBlockMoments(const AppServices &services, const QList<Change> &changes)
{
    for (const auto &[userId, byAdministrator] : ChangedBlocksIn(changes)) {
        if (byAdministrator) {
            services.blockMoments->Keep(userId, QDateTime::currentDateTime());
        } else {
            services.blockMoments->Forget(userId);
        }
    }
}

} // namespace

bool MayChange(const AppServices &services)
{
    if (services.onlyLooks) {
        services.prompt.Tell(OnlyLooksText());
    }
    return !services.onlyLooks;
}

Outcome PerformQuietly(const AppServices &services,
                       QWidget *parent,
                       const QString &what,
                       const Action &action,
                       SessionThread::Patience patience)
{
    if (services.onlyLooks) {
        Outcome refused;
        refused.state = Outcome::State::Refused;
        refused.refusal = OnlyLooksText();
        return refused;
    }
    return AwaitAnswered(
        services,
        parent,
        what,
        [&](const Answers &answers) {
            return [action, answers, link = services.connection.Link()] {
                return RunAction(action, answers, link.get());
            };
        },
        OpenQuestions,
        patience);
}

bool Perform(const AppServices &services,
             QWidget *parent,
             const QString &what,
             const Action &action,
             SessionThread::Patience patience)
{
    return PerformTelling(services, parent, what, action, patience).IsDone();
}

Outcome PerformTelling(const AppServices &services,
                       QWidget *parent,
                       const QString &what,
                       const Action &action,
                       SessionThread::Patience patience)
{
    const Outcome outcome = PerformQuietly(services, parent, what, action, patience);
    if (outcome.IsDone()) {
        KeepBlockMoments(services, outcome.changes);
        if (KindOf(action.id).isEnforced) {
            emit services.news.Stored(outcome.serviceTold);
        }
        return outcome;
    }
    services.prompt.Tell(InWords(action.id, outcome),
                         outcome.state == Outcome::State::Refused ? Prompt::Icon::Warning
                                                                  : Prompt::Icon::Error);
    return outcome;
}

void TellUnread(const AppServices &services, const QString &what, const Failure &failure)
{
    services.prompt.Tell(what + u"\n\n" + failure.InWords(), Prompt::Icon::Error);
}
