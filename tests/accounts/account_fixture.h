// Owners of accounts in a fresh database of each engine, and settings that a test may change.
#pragma once

#include "access/owner.h"
#include "accounts/credit.h"
#include "accounts/currency_settings.h"
#include "base/day.h"
#include "db/value_codes.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_recorder.h"

// Each test's today is 21 November 2026. Users are numbered from 1, groups from 81.
class AccountFixture : public EngineFixture, protected CurrencySettings
{
protected:
    // A user in the mode given whose limits count by the day.
    UserId AddUser(AccountingMode mode, BlockReason reason = BlockReason::None)
    {
        const auto period = LimitPeriod::Day;
        Execute("INSERT INTO users (user_id, username, mode, trafperiod, timeperiod, blocked, "
                "blockreason) VALUES ((?), 'anna', (?), (?), (?), 1, (?))",
                ++lastUser,
                mode,
                period,
                period,
                reason);
        return UserId {lastUser};
    }

    // A group whose limit counts by the month.
    GroupId AddGroup(AccountingMode mode, BlockReason reason = BlockReason::None)
    {
        Execute("INSERT INTO groups (group_id, name, mode, trafperiod, blocked, blockreason) "
                "VALUES ((?), 'sales', (?), 2, 1, (?))",
                ++lastGroup,
                mode,
                reason);
        return GroupId {lastGroup};
    }

    // `columns` and `values` go into an INSERT as they stand; the new row's id.
    static BillId AddCredit(const char *columns, const char *values)
    {
        const std::string text =
            std::string("INSERT INTO billing (") + columns + ") VALUES (" + values + ")";
        RunQuery(text.c_str(), FetchMode::All);
        return NewestId<BillId>("SELECT bill_id FROM billing ORDER BY bill_id");
    }

    // Writes one credit, which nothing stands against.
    static void GiveCredit(const Owner &owner,
                           AccountingMode ownerMode,
                           const StagedCredit &credit,
                           double rate = 1.0)
    {
        const Outcome outcome =
            RunAction(WriteAccountAction(owner, ownerMode, {{credit}, {}}, rate), {}, nullptr);
        ASSERT_TRUE(outcome.IsDone()) << qPrintable(InWords(ActionId::WriteAccount, outcome));
    }

    static Outcome Write(const Owner &owner, AccountingMode openedWith, const StagedAccount &staged)
    {
        return RunAction(WriteAccountAction(owner, openedWith, staged, 1.0), {}, nullptr);
    }

    static bool IsBlocked(const Owner &owner)
    {
        RunQuery(owner.IsUser() ? "SELECT blocked FROM users WHERE user_id = (?)"
                                : "SELECT blocked FROM groups WHERE group_id = (?)",
                 FetchMode::One,
                 owner.Number());
        return queryResult.Flag(1);
    }

    template <typename IdType>
    static IdType NewestId(const char *sqlText)
    {
        RunQuery(sqlText, FetchMode::All);
        return queryResult.Id<IdType>(1);
    }

    TodayOverride today {QDate(2026, 11, 21)};

private:
    quint32 lastUser = 0;
    quint32 lastGroup = 80;
};
