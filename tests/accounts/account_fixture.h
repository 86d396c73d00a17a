// Owners of accounts in a fresh database of each engine, and settings that a test may change.
#pragma once

#include "access/owner.h"
#include "accounts/currency_settings.h"
#include "base/day.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_recorder.h"

// Each test's today is 21 November 2026. Users are numbered from 1, groups from 81.
class AccountFixture : public EngineFixture, protected CurrencySettings
{
protected:
    // A user in the mode given whose limits count by the day.
    Owner AddUser(quint32 ownerMode, quint32 blockReason = 0)
    {
        const quint32 period = 1;
        Execute("INSERT INTO users (user_id, username, mode, trafperiod, timeperiod, blocked, "
                "blockreason) VALUES ((?), 'anna', (?), (?), (?), 1, (?))",
                ++lastUser,
                ownerMode,
                period,
                period,
                blockReason);
        return UserOwner(lastUser);
    }

    // A group whose limit counts by the month.
    Owner AddGroup(quint32 ownerMode, quint32 blockReason = 0)
    {
        Execute("INSERT INTO groups (group_id, name, mode, trafperiod, blocked, blockreason) "
                "VALUES ((?), 'sales', (?), 2, 1, (?))",
                ++lastGroup,
                ownerMode,
                blockReason);
        return GroupOwner(lastGroup);
    }

    // `columns` and `values` go into an INSERT as they stand; the new row's id.
    static quint32 AddCredit(const char *columns, const char *values)
    {
        const std::string text =
            std::string("INSERT INTO billing (") + columns + ") VALUES (" + values + ")";
        RunQuery(text.c_str(), FetchMode::All);
        return NewestId("SELECT bill_id FROM billing ORDER BY bill_id");
    }

    static quint32 NewestId(const char *sqlText)
    {
        RunQuery(sqlText, FetchMode::All);
        return queryResult.Integer(1);
    }

    TodayOverride today {QDate(2026, 11, 21)};

private:
    quint32 lastUser = 0;
    quint32 lastGroup = 80;
};
