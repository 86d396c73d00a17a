// The accounting service at work: it reads what the kernel counted, has it written, and brings the
// kernel to what holds then. All of it lives on one thread that never waits for the database.
#pragma once

#include "daemon/address_book.h"
#include "daemon/day_clock.h"
#include "daemon/day_ends.h"
#include "daemon/neighbourhood.h"
#include "daemon/notice_board.h"
#include "daemon/on_line_time.h"
#include "daemon/policy_maker.h"
#include "daemon/rate_meter.h"
#include "daemon/round.h"
#include "daemon/service_bus.h"
#include "daemon/troubles.h"
#include "db/session_thread.h"
#include "gateway/kernel_table.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <memory>

class AccountingService : public QObject, public BusWork
{
    Q_OBJECT

public:
    // What the service cannot begin without.
    enum class Missing { Kernel, Database };

    // All that is referred to outlives the service. `stateFolder`: where day ends wait for the database.
    AccountingService(
        const ConfigStore &store,
        const ServiceSettings &settings,
        std::unique_ptr<KernelTable> kernel,
        SessionThread &database,
        const QString &stateFolder,
        DayClock::WallClock now = [] { return QDateTime::currentDateTime(); });

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

    using Trouble = Troubles::Kind;

    void BeginWith(Result<Beginning> beginning);
    [[nodiscard]] GatewayClaim Claim() const;
    void FindInterfaces();
    void StartTimers();
    void StopTimers();

    void CountSoon();
    void CountNow();
    void EndDay(const QDateTime &midnight);
    [[nodiscard]] bool IsQuiet();
    // What the kernel has counted, as far as it is not in the database.
    struct TakenReading
    {
        bool isComplete = false; // else the kernel could not be read
        std::optional<Count> count; // nothing new
        std::optional<PacketMark> packets; // up to where they go
    };
    [[nodiscard]] TakenReading TakeNew();
    [[nodiscard]] std::optional<Count> TakeReading(const QDateTime &at);
    void NoteReading(const Reading &reading);
    [[nodiscard]] Count CountOf(const Reading &reading, const QDateTime &at);
    [[nodiscard]] std::vector<AddressCounters> CountersOf(const Reading &reading);

    // A round with what is to be known when it ends.
    struct AskedRound
    {
        Round round;
        size_t dayEnds = 0; // the first ones of its counts
        TakenReading taken;
        std::vector<NetAddress>
            retired; // whose last bytes are in its counts or were written before
    };
    void AskForRound();
    void AskForLastRound();
    [[nodiscard]] DataMark MarkOfKnown(const QDateTime &now) const;
    void FinishRound(AskedRound asked, Result<RoundOutcome> outcome);
    void TakeWritten(AskedRound asked, RoundOutcome outcome);
    void TakeKnown(Known known);
    void TakeFailure(const AskedRound &asked, const Failure &failure);
    void NoteWritten(const AskedRound &asked);
    void ForgetInKernel(const std::vector<NetAddress> &done);
    void RetryLater();
    void AwaitNextChange();

    void Look();
    void EndTimes();

    void TakeKernelEvents();
    void RebuildTable(const QString &why);
    void TakeGeneration(quint64 newGeneration, const AddressBook::Owners &newOwners);
    [[nodiscard]] MadePolicy Made() const;
    void EnforceSoon();
    void Enforce();
    void NoteRefused(const Policy &policy);

    void ReadAgain(UserId userId, quint64 endedNotice);
    void TakeStanding(UserId userId, const std::optional<OneStanding> &read);
    void FinishStop();
    [[nodiscard]] Prices PricesNow() const { return {settings.price}; }
    [[nodiscard]] QDateTime Now() const { return clock.Now(); }

    const ConfigStore &store;
    ServiceSettings settings;
    std::unique_ptr<KernelTable> kernel;
    SessionThread &database;
    const QString instance; // of this gateway
    Troubles troubles;
    DayClock clock;
    DayEnds dayEnds;
    NoticeBoard notices;
    Neighbourhood neighbourhood;
    OnLineTime onLine;
    RateMeter meter;
    AddressBook book;
    std::optional<ChangedCounters> changed; // nothing before the beginning

    QStringList lanInterfaces;
    quint64 generation = 0;

    // As last read from the database.
    Standings standings;
    MonitoredPorts ports;
    DataMark knownMark; // of both
    QDateTime knownSince;

    std::optional<PacketMark> packetsSeen; // ahead of the last reading
    std::optional<PacketMark> packetsWritten; // all counters up to here are in the database
    std::optional<PacketMark> packetsLooked; // at the last look

    QSet<UserId> loggedIn;
    QSet<UserId> timeEnded;
    QSet<UserId> refused; // as enforced

    QTimer countTimer;
    QTimer soonTimer;
    QTimer lookTimer;
    QTimer changeTimer;
    QTimer enforceTimer;
    std::unique_ptr<QSocketNotifier> kernelEvents;
    std::chrono::milliseconds retryPause {};
    bool roundRuns = false;
    bool roundWanted = false;
    // Counters that the kernel no longer has are gone from the database, too.
    bool reconciled = false;
    bool stopping = false;
    bool lastRoundRuns = false;
    bool stopped = false;
    bool keepTable = false;
    bool endWritten = false; // all that was counted before the stop is in the database
    QDate settledDay; // whose beginning the accounts have seen
    QDateTime lastCount;
};
