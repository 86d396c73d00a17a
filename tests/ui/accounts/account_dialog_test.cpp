#include "ui/accounts/account_dialog.h"

#include "support/windows/dark_palette.h"
#include "ui/accounts/account_window_fixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class AccountWindow : public AccountWindowFixture
{
protected:
    static void AddHistory()
    {
        const char *columns = "mode, object_id, date, data, usage, moneydata, moneyusage, "
                              "unlimited, expiredday, closed";
        AddCredit(columns, "2, 1, '2026-11-05 10:00:00', NULL, 3, 4, 1.5, 1, '', 0");
        AddCredit(columns, "2, 1, '2026-11-20 10:00:00', 200, 12.5, 0, 0, 0, '2027.01.31', 0");
        AddCredit(columns, "2, 1, '2026-11-21 10:00:00', 100, 0, NULL, 0, 0, '2026.11.20', 1");
    }

    // Opens the user's account and acts in it.
    void InAccount(std::function<void(QDialog &)> act) const
    {
        const WhileModal account(std::move(act));
        OpenAccount(Services(), UserId {1}, nullptr);
    }

    // Presses "Add credit..." and acts in the dialog that it opens.
    static void WhileAdding(QDialog &account, std::function<void(QDialog &)> act)
    {
        {
            const WhileModal adding(std::move(act));
            Click(account, "addCredit");
        }
        account.activateWindow(); // the offscreen screen leaves that to us
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &account; }));
    }
};

TEST_F(AccountWindow, ListsTheHistoryThroughItsFilter)
{
    AddOwners(AccountingMode::Provider);
    AddHistory();
    UseCurrency(u"2.5"_s);
    InAccount([](QDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Account"_s);
        EXPECT_EQ(Find<QTreeWidget>(dialog, "credits").headerItem()->text(7), u"Used, Mb"_s);
        const QString first =
            u"1|05.11.2026|10:00:00|10.00|3.75|6.25|Money|3.00|Unlimited|Active"_s;
        EXPECT_EQ(Listed(dialog),
                  (QStringList {
                      first,
                      u"2|20.11.2026|10:00:00|200.00|12.50|187.50|Mbytes|12.50|2027.01.31|Active"_s,
                      u"3|21.11.2026|10:00:00|100.00|0.00|187.50|Mbytes|0.00|2026.11.20|Closed"_s,
                  }));
        Grab(dialog, u"account"_s);
        {
            const DarkPalette dark;
            QCoreApplication::processEvents();
            Grab(dialog, u"account-dark"_s);
        }
        auto &period = Find<QComboBox>(dialog, "period");
        PressKey(Qt::Key_P, Qt::AltModifier);
        EXPECT_TRUE(period.hasFocus());
        const std::pair<QString, int> counts[] = {
            {u"Today"_s, 1}, {u"Last week"_s, 2}, {u"Last month"_s, 3}, {u"All records"_s, 3}};
        for (const auto &[name, count] : counts) {
            Choose(period, name);
            EXPECT_EQ(Listed(dialog).size(), count) << qPrintable(name);
        }
        PressMnemonic(Qt::Key_O, [&] { return Listed(dialog).size() == 2; });
        Choose(period, u"Today"_s);
        EXPECT_EQ(Listed(dialog), QStringList());
        Grab(dialog, u"account-empty"_s);
        PressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
}

TEST_F(AccountWindow, AddsCreditsOnOkByKeyboard)
{
    AddOwners(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    UseCurrency(u"2.5"_s);
    InAccount([](QDialog &dialog) {
        WhileAdding(dialog, [](QDialog &credit) {
            EXPECT_EQ(credit.windowTitle(), u"Add credit"_s);
            EXPECT_TRUE(Find<QLabel>(credit, "owner").text().startsWith(u"User: "_s));
            PressMnemonic(Qt::Key_M,
                          [&] { return Find<QLabel>(credit, "unit").text() == u"Euro"_s; });
            PressKey(Qt::Key_A, Qt::AltModifier);
            QTest::keyClicks(QApplication::focusWidget(), u"10"_s);
            PressMnemonic(Qt::Key_N,
                          [&] { return Find<QLineEdit>(credit, "expiryDay").isEnabled(); });
            Grab(credit, u"account-billing-credit"_s);
            PressKey(Qt::Key_Return);
        });
        WhileAdding(dialog, [](QDialog &credit) {
            PressMnemonic(Qt::Key_U,
                          [&] { return !Find<QLineEdit>(credit, "amount").isEnabled(); });
            PressKey(Qt::Key_Return);
        });
        EXPECT_EQ(Listed(dialog).value(0).section(u'|', 3),
                  u"10.00|0.00|10.00|Money|0.00|2026.12.21|New"_s);
        EXPECT_EQ(Listed(dialog).value(1).section(u'|', 3),
                  u"Unlim|0.00|0.00|Unlim|0.00|Unlimited|New"_s);
        EXPECT_EQ(RowsOf("SELECT bill_id FROM billing"), QStringList()) << "before OK";
        PressKey(Qt::Key_Return);
    });
    EXPECT_EQ(RowsOf("SELECT mode, object_id, data, expiredday, unlimited FROM billing"),
              (QStringList {u"2|1||2026.12.21|0"_s, u"2|1|||1"_s}));
    RunQuery("SELECT moneydata, currencydata FROM billing WHERE unlimited = 0", FetchMode::All);
    EXPECT_DOUBLE_EQ(queryResult.Amount(1), 4.0);
    EXPECT_DOUBLE_EQ(queryResult.Amount(2), 2.5);
    EXPECT_EQ(RowsOf("SELECT blocked FROM users"), QStringList {u"0"_s});
}

TEST_F(AccountWindow, CancelLeavesEveryTableAsItWas)
{
    AddOwners(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    AddHistory();
    const QStringList before = EveryRow();
    InAccount([](QDialog &dialog) {
        WhileAdding(dialog, [](QDialog &credit) {
            Type(Find<QLineEdit>(credit, "amount"), u"5"_s);
            Click(credit, "ok");
        });
        GoTo(dialog, 0);
        Click(dialog, "closeCredit");
        EXPECT_EQ(Listed(dialog).size(), 4);
        PressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(AccountWindow, ClosesTheSelectedCreditOnOk)
{
    AddOwners(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    AddHistory();
    InAccount([this](QDialog &dialog) {
        Find<QTreeWidget>(dialog, "credits").clearSelection();
        Click(dialog, "closeCredit");
        EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Please select credit to close"_s});
        GoTo(dialog, 1);
        PressMnemonic(Qt::Key_L, [&] { return Listed(dialog)[1].endsWith(u"|Closed"_s); });
        EXPECT_EQ(Listed(dialog)[1].section(u'|', 5, 5), u"0.00"_s) << "no longer in the balance";
        Choose(Find<QComboBox>(dialog, "period"), u"Last week"_s);
        EXPECT_TRUE(Listed(dialog)[0].endsWith(u"|Closed"_s)) << "remembered";
        GoTo(dialog, 1); // closed already
        Click(dialog, "closeCredit");
        EXPECT_EQ(RowsOf("SELECT bill_id FROM billing WHERE closed = 1"), QStringList {u"3"_s});
        StatementRecorder recorder;
        Click(dialog, "ok");
        EXPECT_EQ(recorder.TakeChanging(),
                  QStringList {u"UPDATE billing SET closed = 1 WHERE bill_id = (?)"_s});
    });
    EXPECT_EQ(RowsOf("SELECT bill_id FROM billing WHERE closed = 1"),
              (QStringList {u"2"_s, u"3"_s}));
    EXPECT_EQ(RowsOf("SELECT blocked FROM users"), QStringList {u"1"_s});
}

TEST_F(AccountWindow, OnlyNewCreditsCanBeDeleted)
{
    AddOwners(AccountingMode::Traffic);
    AddCredit("mode, object_id, data", "1, 1, 50");
    InAccount([this](QDialog &dialog) {
        Find<QTreeWidget>(dialog, "credits").clearSelection();
        Click(dialog, "deleteCredit");
        GoTo(dialog, 0);
        Click(dialog, "deleteCredit");
        for (const auto *amount : {"1", "2"}) {
            WhileAdding(dialog, [amount](QDialog &credit) {
                Type(Find<QLineEdit>(credit, "amount"), QString::fromLatin1(amount));
                Click(credit, "ok");
            });
        }
        Click(dialog, "closeCredit"); // the newest is selected
        EXPECT_EQ(prompt.TakeSaid(),
                  (QStringList {u"Select the item to delete"_s,
                                u"Cannot delete Expired or Active account"_s,
                                u"Cannot close Expired or New account"_s}));
        GoTo(dialog, 1);
        Click(dialog, "deleteCredit");
        EXPECT_EQ(Listed(dialog).size(), 2);
        EXPECT_EQ(Listed(dialog)[1].section(u'|', 3, 3), u"2.00"_s);
        Click(dialog, "ok");
    });
    EXPECT_EQ(RowsOf("SELECT data FROM billing WHERE bill_id > 1").size(), 1);
}

TEST_F(AccountWindow, LimitCreditsGoByTheMode)
{
    struct Case
    {
        AccountingMode ownerMode;
        bool traffic;
        bool time;
    };
    const Case cases[] = {{AccountingMode::Traffic, true, false},
                          {AccountingMode::Time, false, true},
                          {AccountingMode::TrafficAndTime, true, true}};
    AddOwners(AccountingMode::Traffic);
    for (const auto &[ownerMode, traffic, time] : cases) {
        Execute("UPDATE users SET mode = (?) WHERE user_id = 1", ownerMode);
        InAccount([traffic = traffic, time = time](QDialog &dialog) {
            WhileAdding(dialog, [&](QDialog &credit) {
                EXPECT_EQ(Find<QAbstractButton>(credit, "traffic").isEnabled(), traffic);
                EXPECT_EQ(Find<QAbstractButton>(credit, "time").isEnabled(), time);
                EXPECT_EQ(Find<QLabel>(credit, "unit").text(), traffic ? u"Mbytes"_s : u"hr"_s);
                Grab(credit, u"account-limit-credit"_s);
                Type(Find<QLineEdit>(credit, "amount"), u"7.25"_s);
                Click(credit, "ok");
            });
            Click(dialog, "ok");
        });
    }
    EXPECT_EQ(RowsOf("SELECT mode, trafid, time_id FROM billing"),
              (QStringList {u"1|0|"_s, u"4||0"_s, u"1|0|"_s}));
}

TEST_F(AccountWindow, RefusesAmountsAndDaysThatMakeNoCredit)
{
    AddOwners(AccountingMode::Provider);
    const auto tooFew = u"Please enter an amount above 0 and up to 1000000000"_s;
    InAccount([&](QDialog &dialog) {
        WhileAdding(dialog, [&](QDialog &credit) {
            auto &amount = Find<QLineEdit>(credit, "amount");
            for (const auto *text : {"",
                                     "0",
                                     "0.00",
                                     "abc",
                                     "-",
                                     "-5",
                                     "+7",
                                     "1e3",
                                     "1 000",
                                     "2,5",
                                     "1000000000.01"}) {
                Type(amount, QString::fromLatin1(text));
                PressKey(Qt::Key_Return);
                EXPECT_EQ(prompt.TakeSaid(), QStringList {tooFew}) << text;
                EXPECT_EQ(amount.text(), QString::fromLatin1(text)) << "all stays as it was typed";
                EXPECT_TRUE(amount.hasFocus());
            }
            Type(amount, u"2.505"_s);
            PressKey(Qt::Key_Return);
            EXPECT_EQ(prompt.TakeSaid(),
                      QStringList {u"Please enter a number between 0.01 and 1000000000, with at "
                                   "most 2 decimals."_s});
            Type(amount, u"2.5"_s);
            Click(credit, "noExpiry");
            Type(Find(credit, "expiryDay"), u"2026-11-31"_s);
            PressKey(Qt::Key_Return);
            EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Please enter a day, as in 2026-11-21."_s});
            EXPECT_EQ(Find<QLineEdit>(credit, "expiryDay").text(), u"2026-11-31"_s);
            Type(Find(credit, "expiryDay"), u"2026-11-20"_s);
            Click(credit, "ok");
            EXPECT_EQ(
                prompt.TakeSaid(),
                QStringList {u"The expiry day has already passed. Please choose another day"_s});
            Type(Find(credit, "expiryDay"), u"31.3.2028"_s);
            Click(credit, "ok");
        });
        Click(dialog, "ok");
    });
    EXPECT_EQ(RowsOf("SELECT expiredday FROM billing"), QStringList {u"2028.03.31"_s});
}

TEST_F(AccountWindow, RefusesMoneyWithoutAValidRate)
{
    AddOwners(AccountingMode::Provider);
    UseCurrency(u"0"_s);
    InAccount([this](QDialog &dialog) {
        WhileAdding(dialog, [this](QDialog &credit) {
            Click(credit, "money");
            Type(Find<QLineEdit>(credit, "amount"), u"5"_s);
            Click(credit, "ok");
            EXPECT_EQ(prompt.TakeSaid().size(), 1);
            EXPECT_TRUE(credit.isVisible());
            credit.reject();
        });
        dialog.reject();
    });
}

TEST_F(AccountWindow, AnOwnerThatIsGoneIsToldAndNothingWritten)
{
    const auto gone = u"This user is no longer in the database. Nothing was changed"_s;
    OpenAccount(Services(), UserId {1}, nullptr);
    OpenStatistics(Services(), UserId {1}, nullptr);
    EXPECT_EQ(prompt.TakeSaid(), (QStringList {gone, gone}));
    OpenAccount(Services(), GroupId {81}, nullptr);
    OpenStatistics(Services(), GroupId {81}, nullptr);
    EXPECT_EQ(prompt.TakeSaid().last(),
              u"This group is no longer in the database. Nothing was changed"_s);

    AddOwners(AccountingMode::Provider);
    AddHistory();
    InAccount([](QDialog &dialog) {
        WhileAdding(dialog, [](QDialog &credit) {
            Type(Find<QLineEdit>(credit, "amount"), u"5"_s);
            Click(credit, "ok");
        });
        GoTo(dialog, 0);
        Click(dialog, "closeCredit");
        Execute("DELETE FROM users WHERE user_id = 1");
        Execute("DELETE FROM billing WHERE object_id = 1");
        Click(dialog, "ok");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(Listed(dialog).size(), 4) << "the new credit with them";
        dialog.reject();
    });
    EXPECT_EQ(prompt.TakeSaid(), QStringList {gone});
    EXPECT_EQ(RowsOf("SELECT bill_id FROM billing"), QStringList());
}

TEST_F(AccountWindow, OfAGroupWritesTheGroupsCredits)
{
    AddOwners(AccountingMode::Traffic, BlockReason::TrafficUsedUp);
    AddCredit("mode, group_id, data, usage", "1, 81, 50, 10");
    const WhileModal account([](QDialog &dialog) {
        EXPECT_EQ(Find<QLabel>(dialog, "owner").text(), u"Group: sales"_s);
        EXPECT_EQ(Listed(dialog).value(0).section(u'|', 3), u"50.00|10.00|40.00|Mbytes|Active"_s);
        WhileAdding(dialog, [](QDialog &credit) {
            EXPECT_FALSE(Find<QAbstractButton>(credit, "time").isEnabled());
            Type(Find<QLineEdit>(credit, "amount"), u"5"_s);
            Click(credit, "ok");
        });
        Click(dialog, "ok");
    });
    OpenAccount(Services(), GroupId {81}, nullptr);
    EXPECT_EQ(RowsOf("SELECT mode, group_id, object_id FROM billing WHERE bill_id = 2"),
              QStringList {u"1|81|"_s});
    EXPECT_EQ(RowsOf("SELECT blocked FROM users"), QStringList {u"0"_s}) << "members are unblocked";
}

} // namespace
