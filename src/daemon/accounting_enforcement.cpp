// The service between what holds and the kernel: its table, notices, and what others do to it.
#include "daemon/accounting_service.h"
#include "daemon/supervisor.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

void AccountingService::RebuildTable(const QString &why)
{
    const auto made = Made();
    const auto began = kernel->Begin(made.policy);
    if (!began) {
        troubles.Set(Trouble::Kernel, began.error().text);
        return;
    }
    const auto lost =
        std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - meter.LastReading());
    if (began->generation != generation) {
        journal::Warning(u"The kernel's table was made anew (%1). What went through in the last %2 "
                         "seconds is not counted."_s.arg(why)
                             .arg(lost.count()));
        TakeGeneration(began->generation, made.owners);
    } else {
        journal::Warning(u"The rules of the kernel's table were made anew (%1). Nothing that was "
                         "counted is lost."_s.arg(why));
    }
    CountSoon();
}

// Counters begin at nothing.
void AccountingService::TakeGeneration(quint64 newGeneration, const AddressBook::Owners &newOwners)
{
    generation = newGeneration;
    book.BeginAnew(newOwners);
    onLine.BeginAnew();
    packetsWritten.reset();
    changed.emplace(generation, CountersByKey());
    Enforce(); // bounds speak of the new counters
}

MadePolicy AccountingService::Made() const
{
    return MakePolicy({settings,
                       lanInterfaces,
                       standings,
                       ports,
                       neighbourhood.Companions(),
                       book.Accounted(),
                       notices.InForce(),
                       timeEnded});
}

// At once, but once for all that has been told by then: everybody's rules are made anew for it.
void AccountingService::EnforceSoon()
{
    if (!enforceTimer.isActive()) {
        enforceTimer.start(0ms);
    }
}

// Brings the kernel to what holds now.
void AccountingService::Enforce()
{
    enforceTimer.stop();
    if (stopped) {
        return; // the table may be gone
    }
    if (!changed) {
        return; // what is told before the beginning is in force with it
    }
    const MadePolicy made = Made();
    const auto applied = kernel->Apply(made.policy);
    troubles.Set(Trouble::Kernel, applied ? QString() : applied.error().text);
    if (!applied) {
        knownMark = {}; // the next round tries again
        return;
    }
    if (book.Take(made.owners)) {
        packetsWritten.reset(); // what somebody's new address has counted is still to be written
    }
    NoteRefused(made.policy);
}

void AccountingService::NoteRefused(const Policy &policy)
{
    QSet<UserId> nowRefused;
    for (const auto &[user, rules] : policy.clients) {
        if (rules.refused) {
            nowRefused.insert(UserId {user});
        }
    }
    if (std::exchange(refused, nowRefused) != nowRefused) {
        emit RefusedChanged();
    }
}

void AccountingService::NoticeBlocked(UserId userId, bool blocked)
{
    journal::Info(u"Told that user %1 is %2."_s.arg(userId.value)
                      .arg(blocked ? u"blocked"_s : u"unblocked"_s));
    notices.Put(userId, blocked);
    EnforceSoon();
}

void AccountingService::NoticeLogin(UserId userId, bool isIn)
{
    if (isIn) {
        loggedIn.insert(userId);
    } else {
        loggedIn.remove(userId);
    }
    knownMark = {};
    journal::Info(u"User %1 is logged %2."_s.arg(userId.value).arg(isIn ? u"in"_s : u"out"_s));
    ReadAgain(userId, 0);
}

void AccountingService::ReadAgain(UserId userId, quint64 endedNotice)
{
    const Moment now = MomentOf(Now());
    database.Start(
        this,
        [userId, now, prices = PricesNow(), isIn = loggedIn.contains(userId)] {
            return ReadStanding(userId, now, prices, isIn);
        },
        [this, userId, endedNotice](const Result<std::optional<OneStanding>> &read) {
            if (!read) {
                troubles.Set(Trouble::Database, read.error().text);
                CountSoon();
                return;
            }
            notices.End(userId, endedNotice);
            TakeStanding(userId, *read);
        });
}

// A user who came, went or changed the address since the last round waits for the next one.
void AccountingService::TakeStanding(UserId userId, const std::optional<OneStanding> &read)
{
    const auto known = std::ranges::find(standings.users, userId, &Standing::user);
    if (known == standings.users.end() || !read || known->address != read->user.address
        || known->hardware != read->user.hardware) {
        CountSoon();
        return;
    }
    *known = read->user;
    if (read->groupLeftBytes) {
        standings.groupLeftBytes[read->user.sharedGroup] = *read->groupLeftBytes;
    }
    timeEnded.remove(userId);
    EndTimes();
    EnforceSoon();
}

void AccountingService::TakeKernelEvents()
{
    const auto events = kernel->TakeEvents();
    if (!events) {
        troubles.Set(Trouble::Kernel, events.error().text);
        return;
    }
    if (events->tableChanged) {
        RebuildTable(u"another program changed or removed it"_s);
    }
    if (!events->newFlowtables.isEmpty()) {
        troubles.Set(Trouble::Flowtables,
                     u"Packets that take the flowtable %1 are not counted."_s.arg(
                         events->newFlowtables.join(u", "_s)));
    }
    if (!events->usedUpClients.empty() || !events->usedUpGroups.empty()) {
        CountSoon();
    }
}
