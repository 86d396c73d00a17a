#include "daemon/round_journal.h"

#include "daemon/supervisor.h"

using namespace Qt::StringLiterals;

namespace {

void TellUsers(const QList<UserId> &users, const QString &what)
{
    for (const UserId userId : users) {
        journal::Info(u"User %1: %2."_s.arg(userId.value).arg(what));
    }
}

void TellGroups(const QList<GroupId> &groups, const QString &what)
{
    for (const GroupId groupId : groups) {
        journal::Info(u"Group %1: %2."_s.arg(groupId.value).arg(what));
    }
}

// Both what a count and what the marks have written.
template <typename Part>
void TellBlocks(const Part &part)
{
    TellUsers(part.trafficUsedUp, u"traffic or credit used up, blocked"_s);
    TellUsers(part.timeUsedUp, u"time used up, blocked"_s);
    TellUsers(part.lifted, u"the block is lifted"_s);
    TellGroups(part.groupsUsedUp, u"traffic used up, its members are blocked"_s);
    TellGroups(part.groupsLifted, u"the block is lifted"_s);
}

} // namespace

void TellOfRound(const RoundOutcome &outcome)
{
    for (const Counted &each : outcome.counted) {
        TellBlocks(each);
    }
    TellBlocks(outcome.marks);
    for (const QString &refused : outcome.refusedStations) {
        journal::Warning(refused);
    }
    TellUsers(outcome.stations.made, u"a new workstation"_s);
    TellUsers(outcome.stations.moved, u"the address has changed"_s);
}
