// Accounts with a history, and the keys of a person in their windows.
#pragma once

#include "base/day.h"
#include "db/value_codes.h"
#include "support/core/statement_recorder.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/accounts/accounts.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLineEdit>
#include <QTreeWidget>

// Today is 21 November 2026. User 1, "anna", and group 81, "sales", take their modes from each test.
class AccountWindowFixture : public WindowFixture
{
protected:
    static void AddOwners(AccountingMode ownerMode, BlockReason blockReason = BlockReason::None)
    {
        Execute("INSERT INTO groups (group_id, name, mode, trafperiod, blocked, blockreason) "
                "VALUES (81, 'sales', (?), 2, 1, (?))",
                ownerMode,
                blockReason);
        Execute("INSERT INTO users (user_id, username, mode, group_id, trafperiod, timeperiod, "
                "blocked, blockreason) VALUES (1, 'anna', (?), 81, 2, 2, 1, (?))",
                ownerMode,
                blockReason);
    }

    static void AddCredit(const char *columns, const char *values)
    {
        const std::string text =
            std::string("INSERT INTO billing (") + columns + ") VALUES (" + values + ")";
        RunQuery(text.c_str(), FetchMode::All);
    }

    void UseCurrency(const QString &rate)
    {
        Settings().WriteInteger(values::kCurUse, 2);
        Settings().WriteText(values::kCurrencyName, QStringLiteral("Euro"));
        Settings().WriteText(values::kCurrencyRate, rate);
    }

    static void PressKey(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }

    // Alt with the letter of a button, which acts a moment later.
    template <typename Done>
    static void PressMnemonic(Qt::Key letter, Done done)
    {
        PressKey(letter, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor(done)) << char(letter);
    }

    static QStringList Listed(const QWidget &window)
    {
        return RowTexts(Find<QTreeWidget>(window, "credits"));
    }

    // Selects a row, counted from 0, with the keys.
    static void GoTo(const QWidget &window, int row)
    {
        auto &table = Find<QTreeWidget>(window, "credits");
        table.setFocus();
        QTest::keyClick(&table, Qt::Key_Home);
        for (int i = 0; i < row; ++i) {
            QTest::keyClick(&table, Qt::Key_Down);
        }
        QTest::keyClick(&table, Qt::Key_Space);
    }

    TodayOverride today {QDate(2026, 11, 21)};
};
