#include "daemon/accounting_service.h"

#include "daemon/kernel_surroundings.h"
#include "daemon/supervisor.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kSoon = 200ms; // for several causes to come together
constexpr auto kPatienceAtTheEnd = 20s;
constexpr int kSilentPeriods = 3; // until another gateway counts as gone
constexpr auto kLook = 1s; // where somebody's time is limited
constexpr auto kRareLook = 10s;
constexpr int kLookShare = 50; // of the time at most one part is spent looking

} // namespace

AccountingService::AccountingService(const ConfigStore &settingsStore,
                                     const ServiceSettings &begun,
                                     std::unique_ptr<KernelTable> table,
                                     SessionThread &thread,
                                     const QString &stateFolder,
                                     DayClock::WallClock now)
    : store(settingsStore)
    , settings(begun)
    , kernel(std::move(table))
    , database(thread)
    , instance(InstanceId())
    , clock(std::move(now))
    , dayEnds(stateFolder + u"/day-ends.json"_s)
    , onLine(begun.idleGrace)
{
    for (QTimer *timer : {&soonTimer, &changeTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    soonTimer.setInterval(kSoon);
    enforceTimer.setSingleShot(true);
    connect(&enforceTimer, &QTimer::timeout, this, &AccountingService::Enforce);
    connect(&countTimer, &QTimer::timeout, this, &AccountingService::CountNow);
    connect(&soonTimer, &QTimer::timeout, this, &AccountingService::CountNow);
    connect(&lookTimer, &QTimer::timeout, this, &AccountingService::Look);
    connect(&changeTimer, &QTimer::timeout, this, &AccountingService::CountSoon);
    connect(&clock, &DayClock::DayEnded, this, &AccountingService::EndDay);
    connect(&notices, &NoticeBoard::ReadWanted, this, &AccountingService::ReadAgain);
    connect(&neighbourhood, &Neighbourhood::Named, this, &AccountingService::CountSoon);
    connect(&troubles, &Troubles::Changed, this, &AccountingService::ProblemsChanged);
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
        [this](Result<Beginning> beginning) { BeginWith(std::move(beginning)); });
}

void AccountingService::BeginWith(Result<Beginning> beginning)
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
    standings = std::move(beginning->known.standings);
    ports = std::move(beginning->known.ports);
    book.Begin(beginning->counters);
    const MadePolicy made = Made();
    const auto began = kernel->Begin(made.policy);
    if (!began) {
        emit GaveUp(Missing::Kernel, began.error().text);
        return;
    }
    generation = began->generation;
    if (began->takenOver) {
        book.Complete(made.owners);
    } else {
        book.BeginAnew(made.owners);
    }
    changed.emplace(generation,
                    began->takenOver ? std::move(beginning->counters) : CountersByKey());
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
    troubles.Set(Trouble::Adapter, fault);
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
    clock.Start();
}

void AccountingService::StopTimers()
{
    for (QTimer *timer : {&countTimer, &soonTimer, &lookTimer, &changeTimer}) {
        timer->stop();
    }
    clock.Stop();
}

void AccountingService::CountSoon()
{
    if (!soonTimer.isActive()) {
        soonTimer.start();
    }
}

void AccountingService::CountNow()
{
    troubles.Set(Trouble::Clock, clock.Check());
    if (roundRuns) {
        roundWanted = true;
        return;
    }
    AskForRound();
}

// The day is closed with what the kernel has counted at this moment, whenever the database takes it.
void AccountingService::EndDay(const QDateTime &midnight)
{
    if (const auto count = TakeReading(midnight)) {
        dayEnds.Add(changed->In(*count)); // of many users few have sent since the last count
        troubles.Set(Trouble::StateFile, dayEnds.Problem().value_or(QString()));
    }
    CountSoon();
}

AccountingService::TakenReading AccountingService::TakeNew()
{
    if (IsQuiet()) {
        return {.isComplete = true, .count = {}, .packets = packetsWritten};
    }
    // Ahead of the counters. A packet raises the mark first and its counter a moment later: only a mark that
    // the reading before found, too, has nothing on the way.
    const auto packets = kernel->ReadPackets().value_or(std::nullopt);
    const bool rests = std::exchange(packetsSeen, packets) == packets;
    const auto count = TakeReading(Now());
    return {.isComplete = count.has_value(),
            .count = count,
            .packets = count && rests ? packets : std::nullopt};
}

// No packet has come since what is written was read: however many users there are, nothing is new.
bool AccountingService::IsQuiet()
{
    const auto packets = kernel->ReadPackets();
    if (!packets || !*packets || *packets != packetsWritten) {
        return false; // a failure is told by the reading
    }
    meter.TakeRest(Clock::now());
    return true;
}

// Nothing when the kernel cannot be read; the database is asked all the same.
std::optional<Count> AccountingService::TakeReading(const QDateTime &at)
{
    const auto reading = kernel->Read();
    if (!reading && reading.error().kind == GatewayFailure::Kind::TableLost) {
        RebuildTable(reading.error().text);
        return std::nullopt;
    }
    troubles.Set(Trouble::Kernel, reading ? QString() : reading.error().text);
    if (!reading) {
        return std::nullopt;
    }
    NoteReading(*reading);
    return CountOf(*reading, at);
}

void AccountingService::NoteReading(const Reading &reading)
{
    const auto looked = neighbourhood.Look(reading, lanInterfaces, settings.identification, book);
    if (!looked) {
        troubles.Set(Trouble::Kernel, looked.error().text);
    }
    std::vector<SentReading> sent;
    sent.reserve(reading.clients.size());
    for (const AddressReading &each : reading.clients) {
        sent.push_back({each.address, each.sent});
    }
    onLine.Look(sent, book.Present(), reading.at);
}

Count AccountingService::CountOf(const Reading &reading, const QDateTime &at)
{
    Count count {.gatewayId = settings.gatewayId,
                 .generation = reading.generation,
                 .at = at,
                 .counters = CountersOf(reading),
                 .online = {},
                 .usedUp = {},
                 .usedUpGroups = {}};
    for (const auto &[userId, seconds] : onLine.Take(reading.at)) {
        count.online.push_back({userId, seconds});
    }
    for (const quint32 user : reading.usedUpClients) {
        count.usedUp.insert(UserId {user});
    }
    for (const quint32 group : reading.usedUpGroups) {
        count.usedUpGroups.insert(GroupId {group});
    }
    return count;
}

// Of the addresses that are somebody's, or were.
std::vector<AddressCounters> AccountingService::CountersOf(const Reading &reading)
{
    std::vector<AddressCounters> counters;
    RateMeter::Totals totals;
    const auto add = [&](const NetAddress &address, bool unknown, quint64 received, quint64 sent) {
        const UserId owner = book.OwnerOf(address);
        if (owner.IsSet()) {
            counters.push_back({address, unknown, owner, received, sent});
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
    meter.Take(std::move(totals), reading.at);
    return counters;
}

// Who has sent since the last look; limits of time end by it to the second.
void AccountingService::Look()
{
    const auto begin = Clock::now();
    const auto packets = kernel->ReadPackets();
    if (packets && *packets && *packets == packetsLooked) {
        return; // nobody has sent
    }
    const auto sent = kernel->ReadSent();
    if (!packets || !sent) {
        return; // the next reading tells
    }
    packetsLooked = *packets;
    onLine.Look(*sent, book.Present(), begin);
    EndTimes();
    const bool someTimeIsLimited = std::ranges::any_of(
        standings.users, [](const Standing &each) { return each.leftSeconds.has_value(); });
    const auto cost = std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - begin);
    lookTimer.setInterval(std::max<std::chrono::milliseconds>(someTimeIsLimited ? kLook : kRareLook,
                                                              kLookShare * cost));
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
    troubles.Set(Trouble::Settings, told.join(u' '));
    knownMark = {};
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
    StopTimers();
    QTimer::singleShot(kPatienceAtTheEnd, this, [this] {
        journal::Error(
            u"The database did not answer in time: what was counted last is not written."_s);
        FinishStop();
    });
    if (!roundRuns) { // else its end asks for the last one
        AskForLastRound();
    }
}

// A table whose counts could not be written stays: the next start writes them.
void AccountingService::FinishStop()
{
    if (std::exchange(stopped, true)) {
        return;
    }
    if (keepTable || !endWritten) {
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
    return troubles.Texts();
}

QList<RefusedUser> AccountingService::Refused() const
{
    QList<RefusedUser> users;
    for (const Standing &each : standings.users) {
        if (refused.contains(each.user)) {
            users << RefusedUser {each.user.value,
                                  ReasonWords(each,
                                              timeEnded.contains(each.user),
                                              notices.InForce().contains(each.user))};
        }
    }
    return users;
}

QList<UserRate> AccountingService::Rates() const
{
    return meter.Rates();
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
