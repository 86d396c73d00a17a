// When storing a sheet lifts the service's block, the same on every database engine.
#include "lifting_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class Lifting : public LiftingFixture
{
protected:
    // The user has used 150 of 100 megabytes and of 100 hours, and is blocked for it.
    static void UseUp(AccountingMode mode, BlockReason reason)
    {
        Execute("DELETE FROM traffic_use");
        Execute("DELETE FROM time_use");
        Execute("DELETE FROM billing");
        Execute("UPDATE users SET blocked = 1, blockreason = (?), mode = (?), traflim = 100, "
                "timelim = 100 WHERE user_id = 1",
                reason,
                mode);
        Execute("INSERT INTO traffic_use (user_id, period, data, blocked) VALUES (1, 2, 150, 1)");
        Execute("INSERT INTO time_use (user_id, period, data, blocked) VALUES (1, 2, 150, 1)");
    }

    static bool IsBlocked()
    {
        return RowsOf("SELECT blocked FROM users WHERE user_id = 1") == QStringList(u"1"_s);
    }
};

struct Raised
{
    const char *name;
    BlockReason reason;
    quint32 newLimit;
    const char *credit; // columns and values; null for none
    bool clears; // the usage record
    bool lifts;
};

} // namespace

TB_ON_EVERY_ENGINE(Lifting);

TEST_P(Lifting, OfARaisedLimitNeedsSomethingLeft)
{
    using enum BlockReason;
    const Raised cases[] = {
        {"above what was used", TrafficUsedUp, 200, nullptr, true, true},
        {"reason 2 likewise", TimeUsedUp, 200, nullptr, true, true},
        {"still used up", TrafficUsedUp, 150, nullptr, true, false},
        {"extended by a credit", TrafficUsedUp, 120, "(closed) VALUES (0)", true, true},
        {"by a closed one", TrafficUsedUp, 120, "(closed) VALUES (1)", true, false},
        {"by one that expires today",
         TrafficUsedUp,
         120,
         "(expiredday) VALUES ('2026.11.21')",
         true,
         true},
        {"by an expired one",
         TrafficUsedUp,
         120,
         "(expiredday) VALUES ('2026.11.20')",
         true,
         false},
        {"by one without an end",
         TrafficUsedUp,
         120,
         "(unlimited, expiredday) VALUES (1, '2026.11.20')",
         true,
         true},
        {"not raised", TrafficUsedUp, 90, "(closed) VALUES (0)", false, false},
        {"entered as it was", TrafficUsedUp, 100, "(closed) VALUES (0)", false, false},
        {"the administrator's block", Administrator, 200, "(closed) VALUES (0)", true, false},
    };
    for (const AccountingMode mode : {AccountingMode::Traffic, AccountingMode::Time}) {
        const bool isTraffic = mode == AccountingMode::Traffic;
        for (const Raised &each : cases) {
            SCOPED_TRACE(std::string(each.name) + (isTraffic ? ", traffic" : ", time"));
            UseUp(mode, each.reason);
            AddCredit(each.credit);
            Execute("UPDATE billing SET object_id = 1, mode = (?)", mode);
            UserRecord record = User();
            if (isTraffic) {
                record.limits.traffic = WholeMegabytes {each.newLimit};
            } else {
                record.limits.time = WholeHours {each.newLimit};
            }
            Store(record);
            EXPECT_EQ(IsBlocked(), !each.lifts);
            EXPECT_THAT(RowsOf(isTraffic ? "SELECT blocked FROM traffic_use"
                                         : "SELECT blocked FROM time_use"),
                        ElementsAre(each.clears ? u"0"_s : u"1"_s));
        }
    }
}

// The value that was entered may be above what the sheet showed, and yet not above what is stored now.
TEST_P(Lifting, ComparesWithTheLimitThatIsStoredNow)
{
    for (const AccountingMode mode : {AccountingMode::Traffic, AccountingMode::Time}) {
        for (const quint32 limit : {300U, 301U}) {
            UseUp(mode, BlockReason::TrafficUsedUp);
            UserRecord record = User();
            if (mode == AccountingMode::Traffic) {
                record.limits.traffic = WholeMegabytes {limit};
            } else {
                record.limits.time = WholeHours {limit};
            }
            Execute("UPDATE users SET traflim = 300, timelim = 300 WHERE user_id = 1");
            EXPECT_TRUE(RunAnswering(UserAction(record), true).IsDone());
            EXPECT_EQ(IsBlocked(), limit == 300);
            EXPECT_THAT(RowsOf(mode == AccountingMode::Traffic
                                   ? "SELECT traflim FROM users WHERE user_id = 1"
                                   : "SELECT timelim FROM users WHERE user_id = 1"),
                        ElementsAre(QString::number(limit)));
        }
    }
}

TEST_P(Lifting, NeedsSomethingOfBothWhereBothAreLimited)
{
    struct Case
    {
        const char *name;
        std::optional<quint32> traffic;
        std::optional<quint32> time;
        const char *credit; // its mode; null for none
        bool lifts;
    };
    const Case cases[] = {
        {"traffic alone", 200, {}, nullptr, false},
        {"time alone", {}, 200, nullptr, false},
        {"both", 200, 200, nullptr, true},
        {"traffic not enough", 120, 200, nullptr, false},
        {"time extended by a credit", 200, {}, "4", true},
        {"traffic extended by a credit", {}, 200, "1", true},
        {"the wrong credit", 200, {}, "1", false},
        {"neither", {}, {}, "1", false},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        UseUp(AccountingMode::TrafficAndTime, BlockReason::TrafficUsedUp);
        if (each.credit != nullptr) {
            Execute("INSERT INTO billing (object_id, mode) VALUES (1, (?))",
                    QString::fromLatin1(each.credit).toUInt());
        }
        UserRecord record = User();
        if (each.traffic) {
            record.limits.traffic = WholeMegabytes {*each.traffic};
        }
        if (each.time) {
            record.limits.time = WholeHours {*each.time};
        }
        Store(record);
        EXPECT_EQ(IsBlocked(), !each.lifts);
        EXPECT_THAT(RowsOf("SELECT blocked FROM traffic_use"),
                    ElementsAre(each.traffic ? u"0"_s : u"1"_s));
        EXPECT_THAT(RowsOf("SELECT blocked FROM time_use"),
                    ElementsAre(each.time ? u"0"_s : u"1"_s));
    }
}

TEST_P(Lifting, ByAnotherModeNeedsThatTheModeIsNew)
{
    struct Case
    {
        const char *name;
        AccountingMode mode;
        BlockReason reason;
        const char *credit; // columns and values; null for none
        bool lifts;
    };
    using enum BlockReason;
    using enum AccountingMode;
    const Case cases[] = {
        {"no control", NoControl, TrafficUsedUp, nullptr, true},
        {"no control, administrator's block", NoControl, Administrator, nullptr, false},
        {"no credit", Provider, TrafficUsedUp, nullptr, false},
        {"money left", Provider, TrafficUsedUp, "(moneydata, moneyusage) VALUES (10, 9.5)", true},
        {"money used up",
         Provider,
         TrafficUsedUp,
         "(moneydata, moneyusage, usage) VALUES (10, 10, 30)",
         false},
        {"traffic left", Provider, TimeUsedUp, "(data, usage) VALUES (100, 99)", true},
        {"traffic used up", Provider, TimeUsedUp, "(data, usage) VALUES (100, 100)", false},
        {"no bound", Provider, TrafficUsedUp, "(unlimited) VALUES (1)", true},
        {"closed", Provider, TrafficUsedUp, "(closed) VALUES (1)", false},
        {"expires today", Provider, TrafficUsedUp, "(expiredday) VALUES ('2026.11.21')", true},
        {"expired", Provider, TrafficUsedUp, "(expiredday) VALUES ('2026.11.20')", false},
        {"expired but without end",
         Provider,
         TrafficUsedUp,
         "(unlimited, expiredday) VALUES (1, '2026.11.20')",
         true},
        {"administrator's block", Provider, Administrator, "(data) VALUES (10)", false},
    };
    for (const Case &each : cases) {
        for (const bool isNew : {true, false}) {
            SCOPED_TRACE(std::string(each.name) + (isNew ? "" : ", as before"));
            UseUp(isNew ? Traffic : each.mode, each.reason);
            AddCredit(each.credit);
            Execute("UPDATE billing SET object_id = 1, mode = 2");
            UserRecord record = User();
            record.draft.mode = each.mode;
            Store(record);
            EXPECT_EQ(IsBlocked(), !(each.lifts && isNew));
        }
    }
}

// A credit that the sheet stages changes the account as a new mode does.
TEST_P(Lifting, ByCreditsNeedsThatOneIsNew)
{
    for (const bool isStaged : {false, true}) {
        UseUp(AccountingMode::Provider, BlockReason::TrafficUsedUp);
        Execute("INSERT INTO billing (object_id, mode, data) VALUES (1, 2, 10)");
        UserRecord record = User();
        if (isStaged) {
            record.account.credits.push_back({BaseUnits {5}, true, {}});
        }
        Store(record);
        EXPECT_EQ(IsBlocked(), !isStaged);
    }
}
