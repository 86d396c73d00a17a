// Long sequences of counts, held against accounts that are kept by hand: with statements that fail,
// connections that are lost, and counts that are handed in twice, to the byte.
#include "metering/bytes.h"
#include "metering/count.h"
#include "plain_accounts.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"

#include <QRandomGenerator>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kMb = 1 << 20;
constexpr int kUsers = 8;

// Users of every mode, in a group with a limit (91), in one that pays (92) or in neither (90).
struct Setting
{
    const char *columns;
    int mode;
    int group; // 90 and so many
    int trafficLimit;
    bool monthlyTraffic;
    int timeLimit;
    bool monthlyTime;
};

constexpr Setting kSettings[kUsers] = {
    {"mode = 0", 0, 0, 0, false, 0, false},
    {"mode = 1, traflim = 30, trafperiod = 1", 1, 0, 30, false, 0, false},
    {"mode = 1, traflim = 200, trafperiod = 2", 1, 1, 200, true, 0, false},
    {"mode = 2, own_price = true, trafprice = 0.3", 2, 1, 0, false, 0, false},
    {"mode = 4, timelim = 3, timeperiod = 2", 4, 2, 0, false, 3, true},
    {"mode = 5, traflim = 100, trafperiod = 2, timelim = 1, timeperiod = 1",
     5,
     2,
     100,
     true,
     1,
     false},
    {"mode = 0", 0, 1, 0, false, 0, false},
    {"mode = 0", 0, 2, 0, false, 0, false},
};

class EveryCount : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name) VALUES (90, 'none')");
        Execute("INSERT INTO groups (group_id, name, mode, traflim, trafperiod) "
                "VALUES (91, 'limit', 1, 300, 1)");
        Execute("INSERT INTO groups (group_id, name, mode) VALUES (92, 'pays', 2)");
        plain.users.resize(kUsers + 1);
        plain.groups.resize(3);
        plain.groups[1].mode = 1;
        plain.groups[1].traffic.limit = 300;
        plain.groups[2].mode = 2;
        plain.groups[2].price = 0.5;
        for (int i = 0; i < kUsers; ++i) {
            Make(i);
        }
        count = {u"gate"_s, 99, {}, {}, {}, {}, {}};
        for (quint32 user = 1; user <= kUsers; ++user) {
            for (const char *address : {"10.0.0.%1", "fd00::%1"}) {
                count.counters.push_back({*NetAddress::From(QString::fromLatin1(address).arg(user)),
                                          false,
                                          UserId {user},
                                          0,
                                          0});
            }
        }
    }

    void Make(int index)
    {
        const Setting &setting = kSettings[index];
        Execute("INSERT INTO users (username, group_id) VALUES ('somebody', (?))",
                static_cast<quint32>(90 + setting.group));
        const QByteArray update =
            "UPDATE users SET " + QByteArray(setting.columns) + " WHERE user_id = (?)";
        Execute(update.constData(), static_cast<quint32>(index + 1));
        PlainUser &user = plain.users[static_cast<size_t>(index) + 1];
        user.mode = setting.mode;
        user.group = setting.group;
        user.price = 0.3;
        user.traffic.limit = setting.trafficLimit;
        user.traffic.monthly = setting.monthlyTraffic;
        user.time.limit = setting.timeLimit;
        user.time.monthly = setting.monthlyTime;
    }

    // A credit for somebody who can have one, of a kind of its mode.
    void GiveCredit()
    {
        const int index = random.bounded(kUsers);
        PlainUser &user = plain.users[static_cast<size_t>(index) + 1];
        const auto owner = static_cast<quint32>(index + 1);
        const double amount = 0.1 * random.bounded(1, 400);
        const bool expires = random.bounded(3) == 0;
        const QDate last = day.addDays(random.bounded(3));
        PlainCredit credit;
        credit.given = amount;
        if (expires) {
            credit.lastDay = last;
        }
        const QString lastText = expires ? last.toString(u"yyyy.MM.dd"_s) : QString(u""_s);
        if (user.mode == 1 || (user.mode == 5 && random.bounded(2) == 0)) {
            Execute("INSERT INTO billing (mode, trafid, object_id, data, unlimited, expiredday) "
                    "VALUES (1, 0, (?), (?), (?), (?))",
                    owner,
                    amount,
                    expires ? 0U : 1U,
                    lastText);
            user.traffic.credits.push_back(credit);
        } else if (user.mode == 4 || user.mode == 5) {
            credit.given = amount / 20;
            Execute("INSERT INTO billing (mode, time_id, object_id, data, unlimited, expiredday) "
                    "VALUES (4, 0, (?), (?), (?), (?))",
                    owner,
                    credit.given,
                    expires ? 0U : 1U,
                    lastText);
            user.time.credits.push_back(credit);
        } else if (user.mode == 2) {
            credit.isMoney = random.bounded(2) == 0;
            Execute(credit.isMoney
                        ? "INSERT INTO billing (mode, object_id, moneydata, unlimited, expiredday) "
                          "VALUES (2, (?), (?), (?), (?))"
                        : "INSERT INTO billing (mode, object_id, data, unlimited, expiredday) "
                          "VALUES (2, (?), (?), (?), (?))",
                    owner,
                    amount,
                    expires ? 0U : 1U,
                    lastText);
            user.prePaid.push_back(credit);
        } else if (user.group == 1) {
            Execute("INSERT INTO billing (mode, trafid, group_id, data, unlimited, expiredday) "
                    "VALUES (1, 0, 91, (?), (?), (?))",
                    amount,
                    expires ? 0U : 1U,
                    lastText);
            plain.groups[1].traffic.credits.push_back(credit);
        } else if (user.group == 2) {
            Execute("INSERT INTO billing (mode, group_id, moneydata, unlimited, expiredday) "
                    "VALUES (2, 92, (?), (?), (?))",
                    amount,
                    expires ? 0U : 1U,
                    lastText);
            credit.isMoney = true;
            plain.groups[2].prePaid.push_back(credit);
        }
        ASSERT_FALSE(LastFailure());
    }

    // Lets users work until the next count, which is taken here.
    void Work()
    {
        count.online.clear();
        count.at = QDateTime(day, QTime(12, 0), QTimeZone::utc());
        std::vector<size_t> active;
        for (quint32 user = 1; user <= kUsers; ++user) {
            if (random.bounded(4) == 0) {
                continue;
            }
            quint64 received = 0;
            quint64 sent = 0;
            for (AddressCounters &each : count.counters) {
                if (each.owner == UserId {user} && random.bounded(3) > 0) {
                    const quint64 more =
                        static_cast<quint64>(random.bounded(9 * static_cast<int>(kMb)));
                    received += more;
                    sent += more / 7 + 1;
                    each.received += more;
                    each.sent += more / 7 + 1;
                }
            }
            if (sent == 0) {
                continue;
            }
            const double seconds = random.bounded(1200);
            count.online.push_back({UserId {user}, seconds});
            plain.Count(user, day, received, sent, seconds / 3600);
            active.push_back(user);
        }
        for (const size_t user : active) {
            plain.Settle(user, day);
        }
    }

    // Hands the count in until it is written.
    void Write()
    {
        for (int tries = 0; !WriteCount(count, {0.5}); ++tries) {
            ASSERT_LT(tries, 5);
        }
    }

    // Of a text that is put together.
    static QStringList RowsBy(const QByteArray &sqlText) { return RowsOf(sqlText.constData()); }

    static double Number(const QString &text) { return text.toDouble(); }

    static quint64 BytesIn(const QString &megabytes)
    {
        return BytesOf(Megabytes {megabytes.toDouble()});
    }

    void CompareDays() const
    {
        std::map<std::pair<quint32, QDate>, PlainLimit::Record> found;
        for (const QString &row : RowsOf("SELECT user_id, current_time, data, senddata FROM "
                                         "traffic_use WHERE period = 0")) {
            const QStringList values = row.split(u'|');
            auto &record =
                found[{values[0].toUInt(), QDate::fromString(values[1].left(10), Qt::ISODate)}];
            EXPECT_EQ(record.sent, 0U) << "two records of a day";
            record.bytes = BytesIn(values[2]);
            record.sent = BytesIn(values[3]);
        }
        size_t days = 0;
        for (quint32 user = 1; user <= kUsers; ++user) {
            for (const auto &[when, record] : plain.users[user].days) {
                EXPECT_EQ((found[{user, when}].bytes), record.bytes) << user;
                EXPECT_EQ((found[{user, when}].sent), record.sent) << user;
                ++days;
            }
        }
        EXPECT_EQ(found.size(), days);
    }

    static void CompareLimit(const QByteArray &sqlText, const PlainLimit &limit, bool ofTime)
    {
        const QStringList rows = RowsBy(sqlText);
        ASSERT_EQ(static_cast<size_t>(rows.size()), limit.records.size()) << sqlText.constData();
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const QStringList values = rows[i].split(u'|');
            const auto &record = limit.records[static_cast<size_t>(i)];
            EXPECT_EQ(values[1], record.reached ? u"1"_s : u"0"_s) << sqlText.constData() << i;
            if (ofTime) {
                EXPECT_NEAR(Number(values[0]), record.hours, 1e-9) << sqlText.constData();
            } else {
                EXPECT_EQ(BytesIn(values[0]), record.bytes) << sqlText.constData();
                EXPECT_EQ(BytesIn(values[2]), record.sent) << sqlText.constData();
            }
        }
    }

    static void
    CompareCredits(const QByteArray &owner, int mode, const std::vector<PlainCredit> &credits)
    {
        const QStringList rows =
            RowsBy("SELECT usage, moneyusage, closed FROM billing WHERE " + owner
                   + " and mode = " + QByteArray::number(mode) + " ORDER BY bill_id");
        ASSERT_EQ(static_cast<size_t>(rows.size()), credits.size());
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const QStringList values = rows[i].split(u'|');
            const PlainCredit &credit = credits[static_cast<size_t>(i)];
            if (mode == 4) {
                EXPECT_NEAR(Number(values[0]), credit.usedHours, 1e-9);
            } else {
                EXPECT_EQ(BytesIn(values[0]), credit.usedBytes);
            }
            EXPECT_NEAR(Number(values[1]), credit.usedMoney, 1e-9);
            EXPECT_EQ(values[2], credit.closed ? u"1"_s : u"0"_s) << owner.constData() << i;
        }
    }

    void CompareUser(quint32 user) const
    {
        const PlainUser &whose = plain.users[user];
        const QByteArray id = QByteArray::number(user);
        CompareLimit(
            "SELECT data, blocked, senddata FROM traffic_use WHERE period > 0 and user_id = " + id
                + " ORDER BY traf_id",
            whose.traffic,
            false);
        CompareLimit("SELECT data, blocked FROM time_use WHERE period > 0 and user_id = " + id
                         + " ORDER BY time_id",
                     whose.time,
                     true);
        CompareCredits("object_id = " + id, 1, whose.traffic.credits);
        CompareCredits("object_id = " + id, 4, whose.time.credits);
        CompareCredits("object_id = " + id, 2, whose.prePaid);
        const QStringList block =
            RowsBy("SELECT blocked, blockreason FROM users WHERE user_id = " + id);
        EXPECT_EQ(block.value(0).startsWith(u'1'), whose.blocked != 0) << user;
        if (whose.blocked != 0) {
            EXPECT_EQ(block.value(0), u"1|%1"_s.arg(whose.blocked)) << user;
        }
    }

    // What each day took of each credit is all that was taken of it.
    static void CompareCreditUse()
    {
        for (
            const QString &row : RowsOf(
                "SELECT MAX(usage) - SUM(credit_use.data), MAX(moneyusage) - SUM(money) FROM "
                "billing, credit_use WHERE credit_use.bill_id = billing.bill_id GROUP BY billing.bill_id")) {
            EXPECT_NEAR(Number(row.section(u'|', 0, 0)), 0, 1e-9);
            EXPECT_NEAR(Number(row.section(u'|', 1, 1)), 0, 1e-9);
        }
        EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM billing WHERE usage > 0 and bill_id NOT IN "
                         "(SELECT bill_id FROM credit_use)"),
                  QStringList {u"0"_s});
    }

    void Compare() const
    {
        CompareDays();
        for (quint32 user = 1; user <= kUsers; ++user) {
            CompareUser(user);
        }
        CompareLimit(
            "SELECT data, blocked, senddata FROM traffic_use WHERE group_id = 91 ORDER BY traf_id",
            WithReached(plain.groups[1].traffic),
            false);
        CompareCredits("group_id = 91", 1, plain.groups[1].traffic.credits);
        CompareCredits("group_id = 92", 2, plain.groups[2].prePaid);
        CompareCreditUse();
    }

    // The plain accounts do not settle groups: a record is reached when nothing is left behind it.
    static PlainLimit WithReached(PlainLimit limit)
    {
        for (size_t i = 0; i < limit.records.size(); ++i) {
            const bool anyLeft = std::ranges::any_of(limit.credits, [i](const PlainCredit &credit) {
                return !credit.closed && credit.ofRecord == static_cast<int>(i);
            });
            limit.records[i].reached =
                limit.records[i].bytes >= static_cast<quint64>(limit.limit) * kMb && !anyLeft;
        }
        return limit;
    }

    QRandomGenerator random {20261121};
    PlainAccounts plain;
    Count count;
    QDate day {2026, 11, 27};
};

} // namespace

TB_ON_EVERY_ENGINE(EveryCount);

TEST_P(EveryCount, IsWhatAccountsKeptByHandSay)
{
    for (int i = 0; i < 60 && !HasFailure(); ++i) {
        if (random.bounded(2) == 0) {
            GiveCredit();
        }
        if (random.bounded(8) == 0) {
            day = day.addDays(random.bounded(1, 3));
        }
        Work();
        Write();
        if (random.bounded(3) == 0) {
            Write(); // once more
        }
        if (i % 5 == 4) {
            Compare();
        }
    }
    Compare();
}

TEST_P(EveryCount, SurvivesTheFailureOfEachStatement)
{
    GiveCredit();
    Work();
    Write();
    FaultyDriver driver(Dsn());
    qsizetype sent = 1000;
    int failed = 0;
    for (int number = 1; number <= sent && !HasFailure(); ++number) {
        if (number % 4 == 0) {
            GiveCredit();
        }
        Work();
        (void)driver.Take();
        driver.Refuse(number);
        const bool written = WriteCount(count, {0.5}).has_value();
        const QStringList statements = driver.Take();
        EXPECT_EQ(written, statements.size() < number)
            << statements.value(number - 1).toStdString();
        failed += written ? 0 : 1;
        sent = written ? statements.size() : sent;
        Write();
    }
    EXPECT_GT(failed, 15);
    Compare();
}

// A failure on the way leaves whole batches, and the rest for the next time.
TEST_P(EveryCount, GoesOnWhereABatchFailed)
{
    constexpr quint32 kMany = 6000;
    StagedRows many;
    count.counters.clear();
    for (quint32 user = kUsers + 1; user <= kUsers + kMany; ++user) {
        many.Add(user);
        const NetAddress address = NetAddress::FromIpv4(0x0A010000 + user);
        count.counters.push_back({address, false, UserId {user}, 2 * kMb, 1});
    }
    Execute("INSERT INTO users (username, group_id) SELECT s.k, 91 FROM STAGED (?) AS_ROWS s",
            many);
    count.at = QDateTime(day, QTime(12, 0), QTimeZone::utc());
    FaultyDriver driver(Dsn());
    driver.Refuse(20); // of the second batch, whatever its size
    EXPECT_FALSE(WriteCount(count, {0.5}));
    const auto written = RowsBy("SELECT COUNT(*) FROM service_counters").value(0).toUInt();
    EXPECT_GT(written, 0U);
    EXPECT_LT(written, kMany);
    (void)driver.Take();
    Write();
    EXPECT_EQ(RowsBy("SELECT COUNT(*) FROM traffic_use WHERE period = 0 and data = 2"),
              QStringList {QString::number(kMany)});
    EXPECT_EQ(BytesIn(RowsBy("SELECT data FROM traffic_use WHERE group_id = 91").value(0)),
              2 * kMb * kMany);
}

class EveryCountOnServers : public EveryCount
{ };
TB_ON_EVERY_SERVER(EveryCountOnServers);

TEST_P(EveryCountOnServers, SurvivesALostConnectionAtEachStatement)
{
    GiveCredit();
    Work();
    Write();
    for (const auto lose : {&FaultyDriver::LoseBefore, &FaultyDriver::LoseAfter}) {
        FaultyDriver driver(Dsn());
        qsizetype sent = 1000;
        for (int number = 1; number <= sent && !HasFailure(); ++number) {
            if (number % 4 == 0) {
                GiveCredit();
            }
            Work();
            (void)driver.Take();
            (driver.*lose)(number);
            const bool written = WriteCount(count, {0.5}).has_value();
            const qsizetype statements = driver.Take().size();
            sent = written && statements < number ? statements : sent;
            Write();
        }
    }
    Compare();
}

TEST_P(EveryCountOnServers, RunsAgainWhereItLostAgainstAnotherTransaction)
{
    GiveCredit();
    Work();
    Write();
    FaultyDriver driver(Dsn());
    for (int number = 2; number <= 12; ++number) {
        Work();
        driver.Conflict(number);
        EXPECT_TRUE(WriteCount(count, {0.5})) << number;
        (void)driver.Take();
    }
    Compare();
}
