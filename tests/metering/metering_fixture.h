// A gateway with made-up counters and its accounts, on every engine.
#pragma once

#include "metering/bytes.h"
#include "metering/count.h"
#include "support/core/engine_fixture.h"

#include <QTimeZone>

inline constexpr UserId kAnna {1};
inline constexpr UserId kBert {2};
inline constexpr Prices kPrices {0.5}; // money for each megabyte

// What a user does until the next count.
struct Activity
{
    double received = 0; // megabytes
    double sent = 0;
    double hours = 0;
};

class MeteringFixture : public EngineFixture
{
protected:
    // Users 1 to 3 in the group "Everybody", without control.
    void SetUp() override
    {
        EngineFixture::SetUp();
        for (const char *name : {"anna", "bert", "carl"}) {
            Execute("INSERT INTO users (username, group_id) VALUES ((?), 80)",
                    QString::fromLatin1(name));
        }
    }

    // Changes columns of a user's row.
    static void Set(UserId user, const char *columns)
    {
        Execute(QByteArray("UPDATE users SET " + QByteArray(columns) + " WHERE user_id = (?)")
                    .constData(),
                user);
        EXPECT_FALSE(LastFailure());
    }

    static void SetGroup(const char *columns)
    {
        Execute(QByteArray("UPDATE groups SET " + QByteArray(columns) + " WHERE group_id = 80")
                    .constData());
        EXPECT_FALSE(LastFailure());
    }

    static void Run(const QByteArray &sqlText)
    {
        Execute(sqlText.constData());
        EXPECT_FALSE(LastFailure()) << sqlText.constData();
    }

    // Lets the user's own address have done so at the next count.
    void Does(UserId user, const Activity &activity)
    {
        AddressCounters &counters = OfUser(user);
        counters.received += BytesOf(Megabytes {activity.received});
        counters.sent += BytesOf(Megabytes {activity.sent});
        if (activity.hours > 0) {
            next.online.push_back({user, activity.hours * 3600});
        }
    }

    // The count now, with all counters.
    [[nodiscard]] Count Taken() const
    {
        Count count = next;
        count.at = now;
        return count;
    }

    Counted Write(const Prices &prices = kPrices)
    {
        const auto counted = WriteCount(Taken(), prices);
        EXPECT_TRUE(counted) << (counted ? "" : qPrintable(counted.error().text));
        next.online.clear();
        next.usedUp.clear();
        next.usedUpGroups.clear();
        return counted.value_or(Counted());
    }

    Counted CountFor(UserId user, const Activity &activity)
    {
        Does(user, activity);
        return Write();
    }

    void GoTo(QDate day) { now = QDateTime(day, QTime(12, 0), QTimeZone::utc()); }

    [[nodiscard]] static NetAddress AddressOf(UserId user)
    {
        return NetAddress::FromIpv4(0x0A000000 + user.value);
    }

    AddressCounters &OfUser(UserId user)
    {
        const NetAddress address = AddressOf(user);
        for (AddressCounters &each : next.counters) {
            if (each.address == address && !each.unknown) {
                return each;
            }
        }
        next.counters.push_back({address, false, user, 0, 0});
        return next.counters.back();
    }

    // Rows with their numbers as every engine would write them.
    [[nodiscard]] static QStringList Rows(const char *sqlText)
    {
        QStringList rows = RowsOf(sqlText);
        for (QString &row : rows) {
            QStringList values = row.split(u'|');
            for (QString &value : values) {
                bool isNumber = false;
                const double number = value.toDouble(&isNumber);
                value = isNumber ? QString::number(number, 'g', 12) : value.left(10);
            }
            row = values.join(u'|');
        }
        return rows;
    }

    QDateTime now {QDate(2026, 11, 21), QTime(12, 0), QTimeZone::utc()};
    Count next {QStringLiteral("gate"), 18446744073709551557ULL, {}, {}, {}, {}, {}};
};

inline const char kTraffic[] = "SELECT user_id, period, data, senddata, blocked FROM traffic_use "
                               "WHERE group_id IS NULL ORDER BY user_id, period, traf_id";
inline const char kGroupTraffic[] = "SELECT period, data, senddata, blocked FROM traffic_use "
                                    "WHERE group_id = 80 ORDER BY traf_id";
inline const char kTime[] =
    "SELECT user_id, period, data, blocked FROM time_use ORDER BY user_id, period, time_id";
inline const char kCredits[] = "SELECT usage, moneyusage, closed FROM billing ORDER BY bill_id";
inline const char kBlocks[] = "SELECT blocked, blockreason FROM users WHERE user_id = 1";
