// Midnight, and other moments, with a clock of the test's own around the service: the service runs inside the test.
#include "daemon/accounting_service.h"
#include "daemon/service_lab.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class ServiceDay : public ServiceLab
{
protected:
    static inline const QDate kDay {2026, 11, 30}; // the last of its month
    static inline const QDateTime kBeforeMidnight {kDay, QTime(23, 59, 58)};

    void SetUp() override
    {
        ServiceLab::SetUp();
        SetClock(kBeforeMidnight);
    }

    void TearDown() override
    {
        StopWithoutAWord();
        ServiceLab::TearDown();
    }

    void SetClock(const QDateTime &to) { offset = QDateTime::currentDateTime().msecsTo(to); }
    [[nodiscard]] QDateTime Now() const { return QDateTime::currentDateTime().addMSecs(offset); }

    void Begin()
    {
        auto table = KernelTable::Open();
        ASSERT_TRUE(table);
        database.Open(ReachableDsn());
        inside = std::make_unique<AccountingService>(store,
                                                     ReadServiceSettings(store, {}).settings,
                                                     std::move(*table),
                                                     database,
                                                     folder.path(),
                                                     [this] { return Now(); });
        const QSignalSpy began(inside.get(), &AccountingService::Began);
        const QSignalSpy counted(inside.get(), &AccountingService::Counted);
        inside->Begin();
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return !began.isEmpty() && !counted.isEmpty(); }, kPatience));
    }

    // As a kill does: what was not written stays unwritten.
    void StopWithoutAWord()
    {
        inside.reset();
        database.Close();
    }

    void AwaitMidnight() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return Now().date() > kDay; }, kPatience));
    }

    // Datagrams of the workstation at once; the bytes that are to be accounted.
    static quint64 SendSome(quint32 userId, int count)
    {
        const auto here =
            MakeSocket(Lab(), Place::Workstations, Transport::Udp, {Workstation(userId), 4000});
        const auto there = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, 4000});
        EXPECT_EQ(SendDatagrams(here, {kThere, 4000}, 100, count), count);
        EXPECT_EQ(TakeDatagrams(there, count), count);
        return Ipv4Bytes(100, count);
    }

    static QString Record(const char *day, quint64 bytes)
    {
        return u"1|%1|%2"_s.arg(QLatin1StringView(day)).arg(bytes);
    }

    // The sent bytes of each day, as a whole number of them.
    static QStringList AwaitDays(const QStringList &expected)
    {
        const auto days = [] {
            QStringList rows;
            for (const QString &row :
                 RowsOf("SELECT user_id, current_time, senddata * 1048576 FROM traffic_use "
                        "WHERE period = 0 ORDER BY current_time")) {
                const QStringList columns = row.split(u'|');
                rows << u"%1|%2|%3"_s.arg(columns[0], columns[1].left(10))
                            .arg(static_cast<quint64>(columns[2].toDouble()));
            }
            return rows;
        };
        static_cast<void>(QTest::qWaitFor([&] { return days() == expected; }, kPatience));
        return days();
    }

    qint64 offset = 0; // milliseconds that the service's clock is ahead of the machine's
    SessionThread database;
    std::unique_ptr<AccountingService> inside;
};

class ServiceClock : public ServiceDay
{ };

TB_ON_EVERY_ENGINE(ServiceDay);
INSTANTIATE_TEST_SUITE_P(Engines, ServiceClock, testing::Values("sqlite"), EngineName);

TEST_P(ServiceDay, EndsToTheByte)
{
    AddUser(1);
    Begin();
    const quint64 before = SendSome(1, 7);
    EXPECT_EQ(Now().date(), kDay) << "the machine was too slow for this test";
    AwaitMidnight();
    QTest::qWait(50);
    const quint64 after = SendSome(1, 11);
    const QStringList expected {Record("2026-11-30", before), Record("2026-12-01", after)};
    EXPECT_EQ(AwaitDays(expected), expected);
}

// The count of midnight waits in its file until the database is back, also over a kill.
TEST_P(ServiceDay, EndsToTheByteWhileTheDatabaseIsAway)
{
    AddUser(1);
    Begin();
    SetClock(kBeforeMidnight);
    QTest::qWait(10);
    const quint64 before = SendSome(1, 7);
    BeginOutage();
    AwaitMidnight();
    QTest::qWait(100);
    const quint64 after = SendSome(1, 11);
    StopWithoutAWord();
    EndOutage();
    Begin();
    const QStringList expected {Record("2026-11-30", before), Record("2026-12-01", after)};
    EXPECT_EQ(AwaitDays(expected), expected);
}

// A clock that is set forward over midnight ends the day at once; one that is set back is told.
TEST_P(ServiceClock, ThatIsSetIsFollowed)
{
    SetClock(QDateTime(kDay, QTime(12, 0)));
    AddUser(1);
    Begin();
    const quint64 noon = SendSome(1, 3);
    SetClock(QDateTime(kDay.addDays(1), QTime(12, 0)));
    const QStringList first {Record("2026-11-30", noon)};
    EXPECT_EQ(AwaitDays(first), first);
    QTest::qWait(1100); // until the service has looked at the clock
    const quint64 next = SendSome(1, 5);
    const QStringList both {first.first(), Record("2026-12-01", next)};
    EXPECT_EQ(AwaitDays(both), both);

    SetClock(QDateTime(kDay, QTime(12, 0)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return inside->Problems().size() == 1; }, kPatience));
    EXPECT_TRUE(inside->Problems().value(0).contains(u"set back"_s));
    const quint64 again = SendSome(1, 2);
    const QStringList back {Record("2026-11-30", noon + again), both.last()};
    EXPECT_EQ(AwaitDays(back), back);
    SetClock(QDateTime(kDay.addDays(1), QTime(12, 0)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return inside->Problems().isEmpty(); }, kPatience));
}

// Limits begin anew, and with them the user may send again; credits whose last day is over are closed.
TEST_P(ServiceDay, BeginsLimitsAnewAndClosesCredits)
{
    AddUser(1, "mode = 1, traflim = 1, trafperiod = 1, blocked = true, blockreason = 1");
    Run("INSERT INTO traffic_use (user_id, period, current_time, data) VALUES (1, 1, '2026-11-30', 1)");
    AddUser(2, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, data, expiredday) VALUES (2, 2, 10, '2026.11.30')");
    Begin();
    Probe limited(Lab(), Workstation(1), kThere);
    Probe paid(Lab(), Workstation(2), kThere);
    EXPECT_FALSE(limited.Passes());
    EXPECT_TRUE(paid.Passes());
    AwaitMidnight();
    const char block[] = "SELECT user_id, blocked, blockreason FROM users ORDER BY user_id";
    const QStringList expected {u"1|0|1"_s, u"2|1|1"_s};
    EXPECT_TRUE(QTest::qWaitFor([&] { return RowsOf(block) == expected; }, kPatience));
    EXPECT_EQ(RowsOf(block), expected);
    EXPECT_EQ(RowsOf("SELECT closed FROM billing"), QStringList(u"1"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return limited.Passes() && !paid.Passes(); }, kPatience));
}

// The last look at the row of an earlier notice waits for the database when another notice comes.
TEST_P(ServiceClock, DoesNotTakeANoticeForTheOneBefore)
{
    AddUser(1);
    Begin();
    Probe probe(Lab(), Workstation(1), kThere);
    EXPECT_TRUE(probe.Passes());
    inside->NoticeBlocked(UserId {1}, true);
    QTest::qWait(1900); // the last look comes after two seconds
    database.Start(
        inside.get(),
        [] {
            std::this_thread::sleep_for(std::chrono::milliseconds(500));
            return Result<bool>(true);
        },
        [](const Result<bool> &) {});
    QTest::qWait(250);
    inside->NoticeBlocked(UserId {1}, true);
    QTest::qWait(600);
    EXPECT_FALSE(probe.Passes());
}

// Everybody's rules are made anew once, however many are blocked.
TEST_P(ServiceClock, EnforcesWhatIsToldTogetherAtOnce)
{
    constexpr quint32 kUsers = 300;
    AddUsers(kUsers);
    Begin();
    const QSignalSpy changes(inside.get(), &AccountingService::RefusedChanged);
    for (quint32 user = 1; user <= kUsers; ++user) {
        inside->NoticeBlocked(UserId {user}, true);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !inside->Refused().isEmpty(); }, kPatience));
    EXPECT_EQ(inside->Refused().size(), kUsers);
    EXPECT_EQ(changes.size(), 1);
}
