#include "daemon/accounting_service.h"

#include "daemon/supervisor.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kSoon = 200ms; // for several causes to come together
constexpr size_t kStationsAtOnce = 100; // in one transaction
constexpr auto kFirstRetry = 1s; // after the database could not be had; each pause doubles
constexpr auto kPatienceAtTheEnd = 20s;
constexpr int kSilentPeriods = 3; // until another gateway counts as gone
constexpr auto kLook = 1s; // where somebody's time is limited
constexpr auto kRareLook = 10s;
constexpr int kLookShare = 50; // of the time at most one part is spent looking
constexpr std::array kReadAgain {100ms, 500ms, 2000ms}; // a notice comes before the commit

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

QDateTime MidnightAfter(QDate day)
{
    return day.addDays(1).startOfDay();
}

} // namespace

AccountingService::AccountingService(const ConfigStore &settingsStore,
                                     const ServiceSettings &begun,
                                     std::unique_ptr<KernelTable> table,
                                     SessionThread &thread,
                                     const QString &stateFolder,
                                     WallClock now)
    : store(settingsStore)
    , settings(begun)
    , kernel(std::move(table))
    , database(thread)
    , instance(InstanceId())
    , wallClock(std::move(now))
    , dayEnds(stateFolder + u"/day-ends.json"_s)
    , onLine(begun.idleGrace)
{
    for (QTimer *timer : {&soonTimer, &midnightTimer, &changeTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    soonTimer.setInterval(kSoon);
    enforceTimer.setSingleShot(true);
    connect(&enforceTimer, &QTimer::timeout, this, &AccountingService::Enforce);
    connect(&countTimer, &QTimer::timeout, this, &AccountingService::CountNow);
    connect(&soonTimer, &QTimer::timeout, this, &AccountingService::CountNow);
    connect(&lookTimer, &QTimer::timeout, this, &AccountingService::Look);
    connect(&midnightTimer, &QTimer::timeout, this, &AccountingService::EndDay);
    connect(&changeTimer, &QTimer::timeout, this, &AccountingService::CountSoon);
    connect(&finder, &WorkstationFinder::Named, this, &AccountingService::CountSoon);
}

void AccountingService::Begin()
{
    FindInterfaces();
    const auto standing = kernel->StandingGeneration();
    if (!standing) {
        emit GaveUp(Missing::Kernel, standing.error().text);
        return;
    }
    generation = standing->value_or(0);
    const BeginningWanted wanted {.dataSource = settings.dataSource,
                                  .claim = Claim(),
                                  .silence = kSilentPeriods * settings.period,
                                  .now = Now(),
                                  .prices = PricesNow()};
    database.Start(
        this,
        [wanted] { return ReadBeginning(wanted); },
        [this](const Result<Beginning> &beginning) { BeginWith(beginning); });
}

void AccountingService::BeginWith(const Result<Beginning> &beginning)
{
    if (!beginning) {
        emit GaveUp(Missing::Database,
                    u"The database %1 cannot be used: %2"_s.arg(settings.dataSource,
                                                                beginning.error().text));
        return;
    }
    if (!beginning->refusal.isEmpty()) {
        emit GaveUp(Missing::Database, beginning->refusal);
        return;
    }
    standings = beginning->standings;
    ports = beginning->ports;
    for (const auto &[key, counters] : beginning->counters.asKeyValueRange()) {
        const auto address = NetAddress::From(key.address);
        if (address && !key.unknown) {
            accounted.insert(*address, counters.received);
            owners.insert(*address, counters.owner);
        }
    }
    const MadePolicy made = Made();
    const auto began = kernel->Begin(made.policy);
    if (!began) {
        emit GaveUp(Missing::Kernel, began.error().text);
        return;
    }
    if (!began->takenOver) {
        accounted.clear();
        owners.clear();
    }
    generation = began->generation;
    for (const auto &[address, owner] : made.owners.asKeyValueRange()) {
        if (!owners.contains(address)) { // else what it counted until now is the other one's
            owners.insert(address, owner);
        }
    }
    changed.emplace(generation, accounted.isEmpty() ? CountersByKey() : beginning->counters);
    journal::Info(began->takenOver ? u"Goes on with the kernel's table as it stands."_s
                                   : u"Made a new table in the kernel."_s);
    StartTimers();
    CountNow();
    emit Began();
}

GatewayClaim AccountingService::Claim() const
{
    return {settings.gatewayId, instance, generation};
}

void AccountingService::FindInterfaces()
{
    QString fault;
    lanInterfaces = LanInterfaces(settings.adapter, fault);
    SetTrouble(Trouble::Adapter, fault);
}

void AccountingService::StartTimers()
{
    kernelEvents =
        std::make_unique<QSocketNotifier>(kernel->EventDescriptor(), QSocketNotifier::Read);
    connect(kernelEvents.get(),
            &QSocketNotifier::activated,
            this,
            &AccountingService::TakeKernelEvents);
    countTimer.start(settings.period);
    lookTimer.start(kLook);
    countedDay = Now().date();
    midnightTimer.start(Now().msecsTo(MidnightAfter(countedDay)));
}

void AccountingService::CountSoon()
{
    if (!soonTimer.isActive()) {
        soonTimer.start();
    }
}

void AccountingService::CountNow()
{
    CheckClock();
    if (roundRuns) {
        roundWanted = true;
        return;
    }
    AskForRound(TakeReading(Now()));
}

// Nothing when the kernel cannot be read; the database is asked all the same.
std::optional<Count> AccountingService::TakeReading(const QDateTime &at)
{
    const auto reading = kernel->Read();
    if (!reading && reading.error().kind == GatewayFailure::Kind::TableLost) {
        RebuildTable(reading.error().text);
        return std::nullopt;
    }
    SetTrouble(Trouble::Kernel, reading ? QString() : reading.error().text);
    if (!reading) {
        return std::nullopt;
    }
    NoteReading(*reading);
    return CountOf(*reading, at);
}

void AccountingService::NoteReading(const Reading &reading)
{
    const std::vector<AddressPair> pairs = PresentPairs(reading);
    companions = CompanionsIn(pairs, settings.identification);
    hardware.clear();
    for (const AddressPair &each : pairs) {
        hardware.insert(each.address, each.hardware);
    }
    finder.Look(reading.unknown, owners, hardware);
    std::vector<SentReading> sent;
    for (const AddressReading &each : reading.clients) {
        sent.push_back({each.address, each.sent});
    }
    NoteSent(sent, reading.at);
}

// Those of packets, and those of the kernel's neighbour table, which goes before them.
std::vector<AddressPair> AccountingService::PresentPairs(const Reading &reading)
{
    std::vector<AddressPair> pairs = reading.pairs;
    const auto neighbours = ReadNeighbours();
    if (!neighbours) {
        SetTrouble(Trouble::Kernel, neighbours.error().text);
        return pairs;
    }
    QSet<NetAddress> known;
    for (const Neighbour &each : *neighbours) {
        known.insert(each.address);
    }
    std::erase_if(pairs,
                  [&known](const AddressPair &each) { return known.contains(each.address); });
    for (const Neighbour &each : *neighbours) {
        if (lanInterfaces.isEmpty() || lanInterfaces.contains(each.interface)) {
            pairs.push_back({each.address, each.hardware});
        }
    }
    return pairs;
}

// New workstations, and users' addresses at which another hardware address was seen than the row has.
std::vector<Station> AccountingService::TakeStationsSeen()
{
    std::vector<Station> stations = finder.Take();
    for (const Standing &each : standings.users) {
        const auto address = NetAddress::From(each.ip);
        const auto seen = address ? hardware.constFind(*address) : hardware.constEnd();
        if (seen == hardware.constEnd() || seen->Text() == each.mac
            || toldHardware.value(*address) == *seen || stations.size() >= kStationsAtOnce) {
            continue;
        }
        toldHardware.insert(*address, *seen);
        stations.push_back({each.ip, seen->Text(), {}});
    }
    return stations;
}

Count AccountingService::CountOf(const Reading &reading, const QDateTime &at)
{
    Count count {.gatewayId = settings.gatewayId,
                 .generation = reading.generation,
                 .at = at,
                 .counters = {},
                 .online = {},
                 .usedUp = {},
                 .usedUpGroups = {}};
    UserTotals totals;
    const auto add = [&](const NetAddress &address, bool unknown, quint64 received, quint64 sent) {
        const UserId owner = OwnerOf(address);
        if (owner.IsSet()) {
            count.counters.push_back({address.Text(), unknown, owner, received, sent});
            totals[owner].first += received;
            totals[owner].second += sent;
        }
    };
    for (const AddressReading &each : reading.clients) {
        add(each.address, false, each.received, each.sent);
    }
    for (const UnknownReading &each : reading.unknown) {
        add(each.address, true, each.received, each.sent);
    }
    for (const auto &[userId, seconds] : onLine.Take(reading.at)) {
        count.online.push_back({userId, seconds});
    }
    for (const quint32 user : reading.usedUpClients) {
        count.usedUp.insert(UserId {user});
    }
    for (const quint32 group : reading.usedUpGroups) {
        count.usedUpGroups.insert(GroupId {group});
    }
    rates = RatesBetween(lastTotals, totals, reading.at - lastReading);
    lastTotals = std::move(totals);
    lastReading = reading.at;
    return count;
}

void AccountingService::AskForRound(const std::optional<Count> &count)
{
    const QDateTime now = Now();
    AskedRound asked {.round = {.claim = Claim(),
                                .isLast = lastRoundRuns,
                                .forgotten = forgottenCounters,
                                .counts = dayEnds.Waiting(),
                                .reconcile = !reconciled && count,
                                .beginsDay = now.date() != settledDay,
                                .prices = PricesNow(),
                                .now = now,
                                .loggedIn = loggedIn,
                                .stations = TakeStationsSeen(),
                                .stationRules = StationRulesOf(settings)},
                      .dayEnds = dayEnds.Waiting().size(),
                      .retired = {retired.keyBegin(), retired.keyEnd()}};
    if (count) {
        asked.round.counts.push_back(*count);
    }
    roundRuns = true;
    roundWanted = false;
    Round work = asked.round;
    for (Count &each : work.counts) {
        each = work.reconcile ? each : changed->In(each);
    }
    database.Start(
        this,
        [work = std::move(work)] { return RunRound(work); },
        [this, asked = std::move(asked)](const Result<RoundOutcome> &outcome) {
            FinishRound(asked, outcome);
        });
}

void AccountingService::FinishRound(const AskedRound &asked, const Result<RoundOutcome> &outcome)
{
    roundRuns = false;
    if (outcome) {
        TakeWritten(asked, *outcome);
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
    SetTrouble(Trouble::Database, u"The database cannot be used: %1"_s.arg(failure.text));
    finder.PutBack(asked.round.stations);
    toldHardware.clear();
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

void AccountingService::TakeWritten(const AskedRound &asked, const RoundOutcome &outcome)
{
    SetTrouble(Trouble::Database, {});
    if (outcome.claim == ClaimOutcome::AnotherIsAlive) {
        keepTable = true;
        emit GaveUp(Missing::Database,
                    u"Another gateway has taken the id \"%1\"."_s.arg(settings.gatewayId));
        return;
    }
    retryPause = {};
    reconciled = reconciled || asked.round.reconcile;
    settledDay = asked.round.now.date();
    for (const Count &each : asked.round.counts) {
        if (each.generation == generation) { // else the table was made anew meanwhile
            changed->Take(each);
            NoteAccounted(each);
        }
    }
    changed->Forget(asked.round.forgotten);
    std::erase_if(forgottenCounters, [&asked](const CounterKey &key) {
        return std::ranges::find(asked.round.forgotten, key) != asked.round.forgotten.end();
    });
    if (asked.dayEnds > 0) {
        dayEnds.Remove(asked.dayEnds);
        SetTrouble(Trouble::StateFile, dayEnds.Problem().value_or(QString()));
    }
    standings = outcome.standings;
    ports = outcome.ports;
    timeEnded.clear();
    lastCount = asked.round.now;
    TellOutcome(outcome);
    EndTimes();
    Enforce();
    ForgetInKernel(asked.retired);
    AwaitNextChange();
    emit Counted();
}

void AccountingService::NoteAccounted(const Count &count)
{
    for (const AddressCounters &each : count.counters) {
        const auto address = NetAddress::From(each.address);
        if (!address) {
            continue;
        }
        if (each.unknown) {
            doneUnknown.push_back(*address);
        } else {
            accounted.insert(*address, each.received);
        }
    }
}

// What was accounted and is nobody's any more goes; the database forgets it with the next round.
void AccountingService::ForgetInKernel(const std::vector<NetAddress> &done)
{
    std::vector<NetAddress> gone;
    std::ranges::copy_if(done, std::back_inserter(gone), [this](const NetAddress &address) {
        return retired.contains(address);
    });
    const auto forgotten = gone.empty() ? GatewayResult<void>() : kernel->Forget(gone);
    const auto unknownForgotten =
        doneUnknown.empty() ? GatewayResult<void>() : kernel->ForgetUnknown(doneUnknown);
    if (!forgotten || !unknownForgotten) {
        SetTrouble(Trouble::Kernel, (forgotten ? unknownForgotten : forgotten).error().text);
        return;
    }
    for (const NetAddress &address : gone) {
        retired.remove(address);
        accounted.remove(address);
        forgottenCounters.push_back({address.Text(), false});
    }
    for (const NetAddress &address : std::exchange(doneUnknown, {})) {
        forgottenCounters.push_back({address.Text(), true});
    }
}

// The day is closed with what the kernel has counted at this moment, whenever the database takes it.
void AccountingService::EndDay()
{
    const QDateTime midnight = MidnightAfter(countedDay);
    const QDateTime now = Now();
    if (now < midnight) { // the timer was early, or the clock was set back
        midnightTimer.start(now.msecsTo(midnight));
        return;
    }
    if (const auto count = TakeReading(MidnightAfter(now.date().addDays(-1)))) {
        dayEnds.Add(*count);
        SetTrouble(Trouble::StateFile, dayEnds.Problem().value_or(QString()));
    }
    countedDay = now.date();
    midnightTimer.start(now.msecsTo(MidnightAfter(countedDay)));
    CountSoon();
}

// A clock that was set forward over a midnight ends the day now; one that was set back is told.
void AccountingService::CheckClock()
{
    const QDate today = Now().date();
    if (today > countedDay) {
        EndDay();
        return;
    }
    SetTrouble(Trouble::Clock,
               today < countedDay
                   ? u"The clock was set back from %1 to %2: what is counted now goes to %2."_s.arg(
                       countedDay.toString(Qt::ISODate), today.toString(Qt::ISODate))
                   : QString());
}

void AccountingService::AwaitNextChange()
{
    if (standings.nextChange.isValid()) {
        const qint64 wait = Now().msecsTo(standings.nextChange);
        changeTimer.start(std::chrono::milliseconds(std::clamp<qint64>(wait + 1, 1, 86400000)));
    }
}

// Who has sent since the last look; limits of time end by it to the second.
void AccountingService::Look()
{
    const auto begin = Clock::now();
    const auto sent = kernel->ReadSent();
    if (!sent) {
        return; // the next reading tells
    }
    NoteSent(*sent, begin);
    EndTimes();
    const bool someTimeIsLimited = std::ranges::any_of(
        standings.users, [](const Standing &each) { return each.leftSeconds.has_value(); });
    const auto cost = std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - begin);
    lookTimer.setInterval(std::max<std::chrono::milliseconds>(someTimeIsLimited ? kLook : kRareLook,
                                                              kLookShare * cost));
}

void AccountingService::NoteSent(const std::vector<SentReading> &sent, Clock::time_point moment)
{
    QHash<NetAddress, quint64> now;
    now.reserve(static_cast<qsizetype>(sent.size()));
    for (const SentReading &each : sent) {
        now.insert(each.address, each.sent);
        const UserId owner = owners.value(each.address);
        if (owner.IsSet() && each.sent > lastSent.value(each.address)) {
            onLine.Note(owner, moment);
        }
    }
    lastSent = std::move(now);
}

void AccountingService::EndTimes()
{
    bool ended = false;
    for (const Standing &each : standings.users) {
        if (each.leftSeconds && !timeEnded.contains(each.user)
            && onLine.Pending(each.user) >= *each.leftSeconds) {
            timeEnded.insert(each.user);
            ended = true;
        }
    }
    if (ended) {
        Enforce();
        CountSoon();
    }
}

void AccountingService::TakeKernelEvents()
{
    const auto events = kernel->TakeEvents();
    if (!events) {
        SetTrouble(Trouble::Kernel, events.error().text);
        return;
    }
    if (events->tableChanged) {
        RebuildTable(u"another program changed or removed it"_s);
    }
    if (!events->newFlowtables.isEmpty()) {
        SetTrouble(Trouble::Flowtables,
                   u"Packets that take the flowtable %1 are not counted."_s.arg(
                       events->newFlowtables.join(u", "_s)));
    }
    if (!events->usedUpClients.empty() || !events->usedUpGroups.empty()) {
        CountSoon();
    }
}

void AccountingService::RebuildTable(const QString &why)
{
    const auto made = Made();
    const auto began = kernel->Begin(made.policy);
    if (!began) {
        SetTrouble(Trouble::Kernel, began.error().text);
        return;
    }
    const auto lost = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - lastReading);
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
void AccountingService::TakeGeneration(quint64 newGeneration,
                                       const QHash<NetAddress, UserId> &newOwners)
{
    generation = newGeneration;
    owners = newOwners;
    retired.clear();
    accounted.clear();
    doneUnknown.clear();
    forgottenCounters.clear();
    lastSent.clear();
    changed.emplace(generation, CountersByKey());
    Enforce(); // bounds speak of the new counters
}

MadePolicy AccountingService::Made() const
{
    return MakePolicy(
        {settings, lanInterfaces, standings, ports, companions, accounted, notices, timeEnded});
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
    SetTrouble(Trouble::Kernel, applied ? QString() : applied.error().text);
    if (!applied) {
        return;
    }
    for (const auto &[address, owner] : owners.asKeyValueRange()) {
        if (!made.owners.contains(address)) {
            retired.insert(address, owner);
        }
    }
    owners = made.owners;
    retired.removeIf([this](auto entry) { return owners.contains(entry.key()); });
    QSet<UserId> nowRefused;
    for (const auto &[user, rules] : made.policy.clients) {
        if (rules.refused) {
            nowRefused.insert(UserId {user});
        }
    }
    if (std::exchange(refused, nowRefused) != nowRefused) {
        emit RefusedChanged();
    }
}

UserId AccountingService::OwnerOf(const NetAddress &address) const
{
    const auto present = owners.constFind(address);
    return present != owners.constEnd() ? *present : retired.value(address);
}

void AccountingService::NoticeBlocked(UserId userId, bool blocked)
{
    journal::Info(u"Told that user %1 is %2."_s.arg(userId.value)
                      .arg(blocked ? u"blocked"_s : u"unblocked"_s));
    notices.insert(userId, blocked ? Notice::Blocked : Notice::Unblocked);
    const quint64 number = ++noticeNumbers[userId];
    EnforceSoon();
    for (const auto delay : kReadAgain) {
        const bool isLast = delay == kReadAgain.back();
        QTimer::singleShot(delay, Qt::PreciseTimer, this, [this, userId, number, isLast] {
            if (noticeNumbers.value(userId) == number) {
                ReadAgain(userId, isLast ? number : 0);
            }
        });
    }
}

void AccountingService::NoticeLogin(UserId userId, bool isIn)
{
    if (isIn) {
        loggedIn.insert(userId);
    } else {
        loggedIn.remove(userId);
    }
    journal::Info(u"User %1 is logged %2."_s.arg(userId.value).arg(isIn ? u"in"_s : u"out"_s));
    ReadAgain(userId, 0);
}

// `endedNotice`: the number of the user's notice that has had its time: unless there has been another one
// by then, the row alone holds from now on. 0: none has.
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
                SetTrouble(Trouble::Database, read.error().text);
                CountSoon();
                return;
            }
            if (endedNotice != 0 && noticeNumbers.value(userId) == endedNotice) {
                notices.remove(userId);
                noticeNumbers.remove(userId);
            }
            TakeStanding(userId, *read);
        });
}

// A user who came, went or changed the address since the last round waits for the next one.
void AccountingService::TakeStanding(UserId userId, const std::optional<OneStanding> &read)
{
    const auto known = std::ranges::find(standings.users, userId, &Standing::user);
    if (known == standings.users.end() || !read || known->ip != read->user.ip
        || known->mac != read->user.mac) {
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

void AccountingService::Reload()
{
    const auto [fresh, faults] = ReadServiceSettings(store, settings);
    QStringList told = faults;
    const QStringList problems = ProblemsOf(fresh);
    if (problems.isEmpty()) {
        if (fresh.dataSource != settings.dataSource || fresh.gatewayId != settings.gatewayId) {
            told << u"Another data source or gateway id holds from the next start on."_s;
        }
        const QString dataSource = std::exchange(settings, fresh).dataSource;
        settings.dataSource = dataSource;
    } else {
        told << problems << u"The settings of before stay in force."_s;
    }
    SetTrouble(Trouble::Settings, told.join(u' '));
    FindInterfaces();
    onLine.SetGrace(settings.idleGrace);
    countTimer.start(settings.period);
    CountSoon();
}

void AccountingService::Stop(bool keep)
{
    if (stopping) {
        return;
    }
    stopping = true;
    keepTable = keep || settings.keepsTableOnStop;
    for (QTimer *timer : {&countTimer, &soonTimer, &lookTimer, &midnightTimer, &changeTimer}) {
        timer->stop();
    }
    QTimer::singleShot(kPatienceAtTheEnd, this, [this] {
        journal::Error(
            u"The database did not answer in time: what was counted last is not written."_s);
        FinishStop();
    });
    if (!roundRuns) { // else its end asks for the last one
        AskForLastRound();
    }
}

void AccountingService::AskForLastRound()
{
    lastRoundRuns = true;
    AskForRound(TakeReading(Now()));
}

// A table whose counts could not be written stays: the next start writes them.
void AccountingService::FinishStop()
{
    if (std::exchange(stopped, true)) {
        return;
    }
    const bool everythingWritten = !troubles.contains(Trouble::Database) && !roundRuns;
    if (keepTable || !everythingWritten) {
        journal::Info(u"The kernel's table stays and goes on counting and refusing."_s);
    } else if (const auto removed = kernel->Remove(); !removed) {
        journal::Error(removed.error().text);
    } else {
        journal::Info(u"The kernel's table is removed: everybody passes, nothing is counted."_s);
    }
    emit Stopped();
}

QString AccountingService::LastCount() const
{
    return lastCount.toString(Qt::ISODate);
}

QStringList AccountingService::Problems() const
{
    QStringList texts;
    for (const auto &[trouble, text] : troubles) {
        texts << text;
    }
    return texts;
}

QList<RefusedUser> AccountingService::Refused() const
{
    QList<RefusedUser> users;
    for (const Standing &each : standings.users) {
        if (refused.contains(each.user)) {
            users << RefusedUser {
                each.user.value,
                ReasonWords(each, timeEnded.contains(each.user), notices.contains(each.user))};
        }
    }
    return users;
}

QList<UserRate> AccountingService::Rates() const
{
    return rates;
}

QList<uint> AccountingService::LoggedIn() const
{
    QList<uint> users;
    for (const UserId userId : loggedIn) {
        users << userId.value;
    }
    std::ranges::sort(users);
    return users;
}

void AccountingService::TellOutcome(const RoundOutcome &outcome) const
{
    const auto tellUsers = [](const QList<UserId> &users, const QString &what) {
        for (const UserId userId : users) {
            journal::Info(u"User %1: %2."_s.arg(userId.value).arg(what));
        }
    };
    const auto tellGroups = [](const QList<GroupId> &groups, const QString &what) {
        for (const GroupId groupId : groups) {
            journal::Info(u"Group %1: %2."_s.arg(groupId.value).arg(what));
        }
    };
    const auto tell = [&](const auto &part) {
        tellUsers(part.trafficUsedUp, u"traffic or credit used up, blocked"_s);
        tellUsers(part.timeUsedUp, u"time used up, blocked"_s);
        tellUsers(part.lifted, u"the block is lifted"_s);
        tellGroups(part.groupsUsedUp, u"traffic used up, its members are blocked"_s);
        tellGroups(part.groupsLifted, u"the block is lifted"_s);
    };
    for (const ::Counted &each : outcome.counted) {
        tell(each);
    }
    tell(outcome.marks);
    tellUsers(outcome.stations.made, u"a new workstation"_s);
    tellUsers(outcome.stations.moved, u"the address has changed"_s);
}

void AccountingService::SetTrouble(Trouble trouble, const QString &text)
{
    const auto known = troubles.find(trouble);
    const QString before = known == troubles.end() ? QString() : known->second;
    if (before == text) {
        return;
    }
    if (text.isEmpty()) {
        troubles.erase(known);
        journal::Info(u"Over: %1"_s.arg(before));
    } else {
        troubles[trouble] = text;
        journal::Warning(text);
    }
    supervisor::Status(troubles.empty() ? u"Counting."_s : Problems().join(u' '));
    emit ProblemsChanged();
}
