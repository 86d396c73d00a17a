// What users have used and have left, read for many at once: the same as the rules say of each of them.
#include "access/account_use.h"

#include "access/user_rules.h"
#include "access/user_search.h"
#include "base/day.h"
#include "db/demo_data.h"
#include "db/query.h"
#include "support/core/engine_fixture.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

const QDate kToday(2026, 11, 21);
const AccountMoment kMoment {kToday, 0.02};

class AccountUsesRead : public EngineFixture
{
protected:
    void FillDemonstration()
    {
        const auto problem = FillWithDemoData(Dsn(), {200, 6, 40}, [](const QString &) {});
        ASSERT_FALSE(problem) << qPrintable(*problem);
    }

    static QList<UserId> Everybody()
    {
        const auto ids = ReadAll("SELECT user_id FROM users ORDER BY user_id",
                                 [](const Row &row) { return row.Id<UserId>(1); });
        EXPECT_TRUE(ids);
        return {ids->begin(), ids->end()};
    }

    static QStringList NamesBy(int order, bool ascending)
    {
        QStringList names;
        const auto list = FindUsers({}, {order, ascending}, false);
        EXPECT_TRUE(list) << (list ? "" : qPrintable(list.error().text));
        for (const UserRow &row : list.value_or(UserList()).rows) {
            names << row.userName;
        }
        return names;
    }

    TodayOverride today {kToday};
};

} // namespace

TB_ON_EVERY_ENGINE(AccountUsesRead);

TEST_P(AccountUsesRead, AreWhatTheRulesSayOfEachUser)
{
    FillDemonstration();
    const auto few = ReadAccountUses(Everybody(), kMoment);
    const auto all = ReadAllAccountUses(kMoment);
    ASSERT_TRUE(few) << qPrintable(few.error().text);
    ASSERT_TRUE(all) << qPrintable(all.error().text);
    QSet<AccountUse::Unit> units;
    for (const UserId userId : Everybody()) {
        const auto rules = ReadUserRules(userId, {kToday, QTime(12, 0)}, kMoment.price);
        ASSERT_TRUE(rules && *rules);
        if (!(*rules)->rules.monitored) {
            continue; // of whom nothing else is read
        }
        const auto use = AccountUseOf((*rules)->rules.own, kToday);
        EXPECT_EQ(few->contains(userId), use.has_value()) << userId.value;
        EXPECT_EQ(all->contains(userId), use.has_value()) << userId.value;
        if (use) {
            EXPECT_EQ(few->value(userId), *use) << userId.value;
            EXPECT_EQ(all->value(userId), *use) << userId.value;
            units.insert(use->unit);
        }
    }
    EXPECT_EQ(units.size(), 3) << "the demonstration has accounts of every kind";
}

TEST_P(AccountUsesRead, OnlyOfTheUsersThatAreNamed)
{
    FillDemonstration();
    const QList<UserId> everybody = Everybody();
    const auto all = ReadAllAccountUses(kMoment);
    ASSERT_TRUE(all);
    // Side by side they are read as a span, far from each other in portions of sixty.
    Execute("INSERT INTO users (user_id, username, mode) VALUES (4000000, 'far', 1)");
    for (const bool isSpan : {true, false}) {
        for (const qsizetype count : {0, 1, 59, 60, 61, 120}) {
            const QList<UserId> few = everybody.first(count);
            const auto uses =
                ReadAccountUses(isSpan ? few : few + QList {UserId {4000000}}, kMoment);
            ASSERT_TRUE(uses);
            for (const UserId userId : everybody) {
                const bool isWanted = few.contains(userId) && all->contains(userId);
                EXPECT_EQ(uses->contains(userId), isWanted) << userId.value << " of " << count;
            }
            EXPECT_NE(uses->contains(UserId {4000000}), isSpan);
        }
    }
}

TEST_P(AccountUsesRead, PutTheListInOrder)
{
    Execute(
        "INSERT INTO users (user_id, username, mode, traflim, trafperiod, timelim, timeperiod) "
        "VALUES (1, 'day', 1, 100, 1, 0, 2), (2, 'month', 5, 500, 2, 9, 2), "
        "(3, 'nothing yet', 1, 70, 2, 0, 2), (4, 'over', 1, 10, 2, 0, 2), "
        "(5, 'hours', 4, 0, 2, 40, 2), (6, 'hours today', 4, 0, 2, 3, 1), "
        "(7, 'pre-paid', 2, 0, 2, 0, 2), (8, 'unbounded', 2, 0, 2, 0, 2), (9, 'free', 0, 0, 2, 0, 2), "
        "(10, 'money', 2, 0, 2, 0, 2)");
    const auto use = [](const char *sqlText, quint32 user, quint32 period, QDate day, double data) {
        Execute(sqlText, user, period, DayOf(day), data);
    };
    const auto *traffic =
        "INSERT INTO traffic_use (user_id, period, current_time, data) VALUES ((?), (?), (?), (?))";
    const auto *time =
        "INSERT INTO time_use (user_id, period, current_time, data) VALUES ((?), (?), (?), (?))";
    use(traffic, 1, 1, kToday, 60);
    use(traffic, 1, 1, kToday.addDays(-1), 900);
    use(traffic, 2, 2, {2026, 11, 1}, 480);
    use(traffic, 3, 2, {2026, 10, 1}, 900); // of a month that is over
    use(traffic, 4, 2, {2026, 11, 1}, 75);
    use(time, 5, 2, {2026, 11, 1}, 39);
    use(time, 6, 1, kToday, 1);
    Execute("INSERT INTO billing (mode, object_id, data, usage, expiredday) VALUES "
            "(2, 7, 100, 30, ''), (2, 7, 900, 5, '2026.11.20'), (2, 8, NULL, 800, '')");
    Execute("INSERT INTO billing (mode, object_id, data, usage, moneydata, moneyusage, expiredday) "
            "VALUES (2, 10, NULL, 900, 50, 2, '')");

    EXPECT_EQ(NamesBy(user_order::kUsed, false).join(u','),
              u"month,over,day,nothing yet,unbounded,pre-paid,money,hours,hours today,free"_s);
    EXPECT_EQ(NamesBy(user_order::kUsed, true).join(u','),
              u"nothing yet,day,over,month,money,pre-paid,unbounded,hours today,hours,free"_s);
    EXPECT_EQ(NamesBy(user_order::kLeft, true).join(u','),
              u"over,month,day,nothing yet,money,pre-paid,unbounded,hours,hours today,free"_s);
    EXPECT_EQ(NamesBy(user_order::kLeft, false).join(u','),
              u"nothing yet,day,month,over,unbounded,pre-paid,money,hours today,hours,free"_s);
}

// Whatever the demonstration holds: what is shown stands in the order in which it is shown.
TEST_P(AccountUsesRead, PutTheDemonstrationInTheOrderOfItsFigures)
{
    FillDemonstration();
    const auto uses = ReadAllAccountUses(kMoment);
    ASSERT_TRUE(uses);
    const auto prePaidUsers = ReadAll("SELECT user_id FROM users WHERE mode = 2",
                                      [](const Row &row) { return row.Id<UserId>(1); });
    ASSERT_TRUE(prePaidUsers);
    const QSet<UserId> prePaid(prePaidUsers->begin(), prePaidUsers->end());
    for (const int order : {user_order::kUsed, user_order::kLeft}) {
        const auto list = FindUsers({}, {order, true}, false);
        ASSERT_TRUE(list) << qPrintable(list.error().text);
        std::map<AccountUse::Unit, double> last;
        int compared = 0;
        for (const UserId userId : list->rowUserIds) {
            const auto use = uses->constFind(userId);
            if (use == uses->constEnd() || !use->left || prePaid.contains(userId)) {
                continue; // their amounts of traffic and of money stand side by side
            }
            const double figure = order == user_order::kUsed ? use->used : *use->left;
            const auto before = last.try_emplace(use->unit, figure).first;
            EXPECT_LE(before->second, figure + 0.07) << userId.value << " by " << order;
            before->second = figure;
            ++compared;
        }
        EXPECT_GT(compared, 80);
    }
}

TEST_P(AccountUsesRead, WhatCouldNotBeReadIsNotNothing)
{
    FillDemonstration();
    for (const char *table : {"traffic_use", "time_use", "billing"}) {
        Execute(
            QByteArray("ALTER TABLE ").append(table).append(" RENAME TO elsewhere").constData());
        EXPECT_FALSE(ReadAccountUses(Everybody(), kMoment)) << table;
        EXPECT_FALSE(ReadAllAccountUses(kMoment)) << table;
        Execute(QByteArray("ALTER TABLE elsewhere RENAME TO ").append(table).constData());
    }
}
