// The service between its counts and the database: rounds that are asked for, and what they gave.
#include "daemon/accounting_service.h"
#include "daemon/heap.h"
#include "daemon/round_journal.h"

#include <algorithm>
#include <memory>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kFirstRetry = 1s; // after the database could not be had; each pause doubles

quint32 WholeNumber(std::optional<qint32> number)
{
    return static_cast<quint32>(std::max(number.value_or(0), 0));
}

StationRules StationRulesOf(const ServiceSettings &settings)
{
    const DefaultProfile &profile = settings.newUser;
    return {.identification = settings.identification,
            .keepsAddresses = settings.bindsHardware,
            .profile = {.mode = profile.mode,
                        .trafficLimit = WholeNumber(profile.trafficLimit),
                        .timeLimit = WholeNumber(profile.timeLimit),
                        .period = profile.period,
                        .blocked = profile.blocked,
                        .authRequired = profile.authRequired}};
}

} // namespace

void AccountingService::AskForRound()
{
    TakenReading taken = TakeNew();
    const QDateTime now = Now();
    AskedRound asked {.round = {.claim = Claim(),
                                .isLast = lastRoundRuns,
                                .forgotten = book.Forgotten(),
                                .counts = dayEnds.Waiting(),
                                .reconcile = !reconciled && taken.count,
                                .beginsDay = now.date() != settledDay,
                                .prices = PricesNow(),
                                .now = now,
                                .loggedIn = loggedIn,
                                .stations = neighbourhood.Take(standings, book),
                                .stationRules = StationRulesOf(settings),
                                .known = MarkOfKnown(now)},
                      .dayEnds = dayEnds.Waiting().size(),
                      .taken = std::move(taken),
                      .retired = {}};
    if (asked.taken.count) {
        asked.round.counts.push_back(*std::exchange(asked.taken.count, std::nullopt));
    }
    if (asked.taken.isComplete) {
        asked.retired = book.Retired();
    }
    if (!asked.round.reconcile) {
        for (Count &each : asked.round.counts) {
            each = changed->In(std::move(each));
        }
    }
    roundRuns = true;
    roundWanted = false;
    const auto shared = std::make_shared<AskedRound>(std::move(asked));
    database.Start(
        this,
        [shared] { return RunRound(shared->round); },
        [this, shared](Result<RoundOutcome> outcome) {
            FinishRound(std::move(*shared), std::move(outcome));
        });
}

// Not read: what is known holds no longer, whatever the database says.
DataMark AccountingService::MarkOfKnown(const QDateTime &now) const
{
    return now >= knownSince && now < standings.nextChange ? knownMark : DataMark();
}

void AccountingService::FinishRound(AskedRound asked, Result<RoundOutcome> outcome)
{
    roundRuns = false;
    if (outcome) {
        TakeWritten(std::move(asked), *std::move(outcome));
    } else {
        TakeFailure(asked, outcome.error());
    }
    if (stopping && lastRoundRuns) {
        FinishStop();
    } else if (stopping) {
        AskForLastRound();
    } else if (roundWanted) {
        CountSoon();
    }
}

// Nothing is lost: the counters stand in the kernel, and what else was handed in comes again.
void AccountingService::TakeFailure(const AskedRound &asked, const Failure &failure)
{
    troubles.Set(Trouble::Database, u"The database cannot be used: %1"_s.arg(failure.text));
    knownMark = {}; // some of it may be written
    neighbourhood.PutBack(asked.round.stations);
    std::vector<OnLineTime::Spent> spent;
    for (size_t i = asked.dayEnds; i < asked.round.counts.size(); ++i) {
        for (const OnlineTime &one : asked.round.counts[i].online) {
            spent.push_back({one.user, one.seconds});
        }
    }
    onLine.PutBack(spent);
    RetryLater();
}

void AccountingService::RetryLater()
{
    retryPause = std::min<std::chrono::milliseconds>(
        retryPause == 0ms ? std::chrono::milliseconds(kFirstRetry) : 2 * retryPause,
        settings.period);
    QTimer::singleShot(retryPause, this, &AccountingService::CountSoon);
}

void AccountingService::TakeWritten(AskedRound asked, RoundOutcome outcome)
{
    troubles.Set(Trouble::Database, {});
    if (outcome.claim == ClaimOutcome::AnotherIsAlive) {
        keepTable = true;
        emit GaveUp(Missing::Database,
                    u"Another gateway has taken the id \"%1\"."_s.arg(settings.gatewayId));
        return;
    }
    retryPause = {};
    NoteWritten(asked);
    asked.round.counts.clear(); // they may be of everybody, and what is known needs room
    TellOfRound(outcome);
    knownMark = outcome.mark;
    if (outcome.known) {
        knownSince = asked.round.now;
        TakeKnown(*std::move(outcome.known));
    }
    ForgetInKernel(asked.retired);
    AwaitNextChange();
    emit Counted();
}

void AccountingService::NoteWritten(const AskedRound &asked)
{
    reconciled = reconciled || asked.round.reconcile;
    settledDay = asked.round.now.date();
    endWritten = asked.round.isLast && asked.taken.isComplete;
    lastCount = asked.round.now;
    for (const Count &each : asked.round.counts) {
        if (each.generation == generation) { // else the table was made anew meanwhile
            changed->Take(each);
            book.NoteAccounted(each);
            packetsWritten = asked.taken.packets;
        }
    }
    changed->Forget(asked.round.forgotten);
    book.Drop(asked.round.forgotten);
    if (asked.dayEnds > 0) {
        dayEnds.Remove(asked.dayEnds);
        troubles.Set(Trouble::StateFile, dayEnds.Problem().value_or(QString()));
    }
}

void AccountingService::TakeKnown(Known known)
{
    standings = std::move(known.standings);
    ports = std::move(known.ports);
    timeEnded.clear();
    EndTimes();
    Enforce();
    heap::GiveBack();
}

// What was accounted and is nobody's any more goes; the database forgets it with the next round.
void AccountingService::ForgetInKernel(const std::vector<NetAddress> &done)
{
    const AddressBook::Outdated gone = book.OutdatedOf(done);
    const auto forgotten =
        gone.retired.empty() ? GatewayResult<void>() : kernel->Forget(gone.retired);
    const auto unknownForgotten =
        gone.unknown.empty() ? GatewayResult<void>() : kernel->ForgetUnknown(gone.unknown);
    if (forgotten && unknownForgotten) {
        book.Forget(gone);
    } else {
        troubles.Set(Trouble::Kernel, (forgotten ? unknownForgotten : forgotten).error().text);
    }
}

void AccountingService::AwaitNextChange()
{
    if (standings.nextChange.isValid()) {
        const qint64 wait = Now().msecsTo(standings.nextChange);
        changeTimer.start(std::chrono::milliseconds(std::clamp<qint64>(wait + 1, 1, 86400000)));
    }
}

void AccountingService::AskForLastRound()
{
    lastRoundRuns = true;
    AskForRound();
}
