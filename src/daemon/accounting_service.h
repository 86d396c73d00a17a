// The accounting service at work: it reads what the kernel counted, has it written, and brings the
// kernel to what holds then. All of it lives on one thread that never waits for the database.
#pragma once

#include "daemon/day_ends.h"
#include "daemon/kernel_surroundings.h"
#include "daemon/on_line_time.h"
#include "daemon/policy_maker.h"
#include "daemon/round.h"
#include "daemon/service_bus.h"
#include "daemon/workstation_finder.h"
#include "db/session_thread.h"
#include "gateway/kernel_table.h"
#include "gateway/neighbours.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <map>
#include <memory>

class AccountingService : public QObject, public BusWork
{
    Q_OBJECT

public:
    // What the service cannot begin without.
    enum class Missing { Kernel, Database };

    // What the time is, in the gateway's zone.
    using WallClock = std::function<QDateTime()>;

    // All that is referred to outlives the service. `stateFolder`: where day ends wait for the database.
    AccountingService(
        const ConfigStore &store,
        const ServiceSettings &settings,
        std::unique_ptr<KernelTable> kernel,
        SessionThread &database,
        const QString &stateFolder,
        WallClock now = [] { return QDateTime::currentDateTime(); });

    // Reads what holds, and takes the kernel's table over or makes it. Began or GaveUp follows.
    void Begin();

    // Reads the settings anew; a bad value leaves the old one in force.
    void Reload();

    // Has what was counted last written, then removes the table unless it is to stay, by `keepTable` or
    // by the settings. Stopped follows, at the latest in kPatienceAtTheEnd.
    void Stop(bool keepTable);

    void NoticeBlocked(UserId userId, bool blocked) override;
    void NoticeLogin(UserId userId, bool loggedIn) override;
    [[nodiscard]] QString LastCount() const override;
    [[nodiscard]] QStringList Problems() const override;
    [[nodiscard]] QList<RefusedUser> Refused() const override;
    [[nodiscard]] QList<UserRate> Rates() const override;
    [[nodiscard]] QList<uint> LoggedIn() const override;

signals:
    void Began();
    void GaveUp(AccountingService::Missing missing, const QString &why);
    void Stopped();
    void Counted();
    void RefusedChanged();
    void ProblemsChanged();

private:
    using Clock = std::chrono::steady_clock;

    // What can be wrong for a while; each is told once when it begins and once when it is over.
    enum class Trouble { Adapter, Database, Kernel, Flowtables, Settings, StateFile, Clock };

    void BeginWith(const Result<Beginning> &beginning);
    [[nodiscard]] GatewayClaim Claim() const;
    void FindInterfaces();
    void StartTimers();

    void CountSoon();
    void CountNow();
    [[nodiscard]] std::optional<Count> TakeReading(const QDateTime &at);
    void NoteReading(const Reading &reading);
    [[nodiscard]] std::vector<AddressPair> PresentPairs(const Reading &reading);
    [[nodiscard]] std::vector<Station> TakeStationsSeen();
    [[nodiscard]] Count CountOf(const Reading &reading, const QDateTime &at);
    // A round with what is to be known when it ends.
    struct AskedRound
    {
        Round round;
        size_t dayEnds = 0; // the first ones of its counts
        std::vector<NetAddress> retired; // before its last count was read
    };
    void AskForRound(const std::optional<Count> &count);
    void AskForLastRound();
    void FinishRound(const AskedRound &asked, const Result<RoundOutcome> &outcome);
    void TakeWritten(const AskedRound &asked, const RoundOutcome &outcome);
    void TakeFailure(const AskedRound &asked, const Failure &failure);
    void NoteAccounted(const Count &count);
    void ForgetInKernel(const std::vector<NetAddress> &done);
    void RetryLater();

    void EndDay();
    void CheckClock();
    void AwaitNextChange();

    void Look();
    void NoteSent(const std::vector<SentReading> &sent, Clock::time_point moment);
    void EndTimes();

    void TakeKernelEvents();
    void RebuildTable(const QString &why);
    void TakeGeneration(quint64 newGeneration, const QHash<NetAddress, UserId> &newOwners);
    [[nodiscard]] MadePolicy Made() const;
    void EnforceSoon();
    void Enforce();
    [[nodiscard]] UserId OwnerOf(const NetAddress &address) const;

    void ReadAgain(UserId userId, quint64 endedNotice);
    void TakeStanding(UserId userId, const std::optional<OneStanding> &read);

    void SetTrouble(Trouble trouble, const QString &text); // empty: over
    void TellOutcome(const RoundOutcome &outcome) const;
    void FinishStop();
    [[nodiscard]] Prices PricesNow() const { return {settings.price}; }
    [[nodiscard]] QDateTime Now() const { return wallClock(); }

    const ConfigStore &store;
    ServiceSettings settings;
    std::unique_ptr<KernelTable> kernel;
    SessionThread &database;
    const QString instance; // of this gateway
    WallClock wallClock;
    DayEnds dayEnds;
    WorkstationFinder finder;
    OnLineTime onLine;
    std::optional<ChangedCounters> changed; // nothing before the beginning

    QStringList lanInterfaces;

    // As last read from the database.
    Standings standings;
    MonitoredPorts ports;

    quint64 generation = 0;
    QHash<NetAddress, UserId> owners; // whose bytes an address counts
    QHash<NetAddress, UserId> retired; // whose bytes they counted; nobody's now
    QHash<NetAddress, quint64> accounted; // received bytes that are in the accounts
    std::vector<NetAddress> doneUnknown; // accounted, and somebody's since
    std::vector<CounterKey> forgottenCounters; // gone from the kernel, still in the database
    QHash<NetAddress, quint64> lastSent; // at the last look
    QHash<UserId, Notice> notices;
    QHash<UserId, quint64> noticeNumbers; // of the last one
    QSet<UserId> loggedIn;
    QSet<UserId> timeEnded;
    QSet<UserId> refused; // as enforced
    CompanionAddresses companions;
    QHash<NetAddress, HardwareAddress> hardware; // as seen last
    QHash<NetAddress, HardwareAddress> toldHardware; // to the database, of addresses of users
    QList<UserRate> rates;
    Clock::time_point lastReading {};
    UserTotals lastTotals;

    QTimer countTimer;
    QTimer soonTimer;
    QTimer lookTimer;
    QTimer midnightTimer;
    QTimer changeTimer;
    QTimer enforceTimer;
    std::unique_ptr<QSocketNotifier> kernelEvents;
    std::chrono::milliseconds retryPause {};
    bool roundRuns = false;
    bool roundWanted = false;
    bool reconciled =
        false; // counters that the kernel no longer has are gone from the database too
    bool stopping = false;
    bool lastRoundRuns = false;
    bool stopped = false;
    bool keepTable = false;
    QDate countedDay; // whose end is still to come
    QDate settledDay; // whose beginning the accounts have seen
    QDateTime lastCount;
    std::map<Trouble, QString> troubles;
};
