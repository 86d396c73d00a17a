// Owners of accounts in a fresh database, and settings that a test may change.
#pragma once

#include "accounts/account_owner.h"
#include "base/day.h"
#include "config/config_store.h"
#include "support/core/database_fixture.h"
#include "support/core/statement_recorder.h"

// Each test's today is 21 November 2026.
class AccountFixture : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        settings.CreateKey(ConfigKeyId::Base);
    }

    // A user in the mode given whose limits count by the day, and a group whose limit counts by the
    // month.
    static AccountOwner AddUser(quint32 ownerMode, quint32 blockReason = 0)
    {
        const quint32 period = 1;
        Execute("INSERT INTO users (username, mode, trafperiod, timeperiod, blocked, blockreason) "
                "VALUES ('anna', (?), (?), (?), 1, (?))",
                ownerMode,
                period,
                period,
                blockReason);
        return UserAccount(NewestId("SELECT user_id FROM users ORDER BY user_id"));
    }

    static AccountOwner AddGroup(quint32 ownerMode, quint32 blockReason = 0)
    {
        Execute("INSERT INTO groups (name, mode, trafperiod, blocked, blockreason) "
                "VALUES ('sales', (?), 2, 1, (?))",
                ownerMode,
                blockReason);
        return GroupAccount(NewestId("SELECT group_id FROM groups ORDER BY group_id"));
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

    void UseCurrency(const QString &rate, const QString &name = QStringLiteral("Euro"))
    {
        settings.WriteInteger(values::kCurUse, 2);
        settings.WriteText(values::kCurrencyName, name);
        settings.WriteText(values::kCurrencyRate, rate);
    }

    TodayOverride today {QDate(2026, 11, 21)};
    QTemporaryDir settingsFolder;
    ConfigStore settings {settingsFolder.path()};
};
