// The windows of accounts and statistics while the database fails them, or is changed by somebody else.
#include "support/core/faulty_driver.h"
#include "support/windows/window_promises.h"
#include "ui/accounts/account_page.h"
#include "ui/accounts/account_window_fixture.h"

#include <QFile>
#include <QLabel>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class AccountFailures : public AccountWindowFixture
{
protected:
    void SetUp() override
    {
        AccountWindowFixture::SetUp();
        LetSessionFinish(); // opening itself: its statements are none of a window's
    }

    static void AddHistory()
    {
        const char *columns = "mode, object_id, date, data, usage, unlimited, closed";
        AddCredit(columns, "2, 1, '2026-11-20 10:00:00', 200, 12.5, 1, 0");
        AddCredit(columns, "2, 1, '2026-09-01 10:00:00', 100, 0, 1, 0");
    }

    void InAccount(std::function<void(QDialog &)> act) const
    {
        const WhileModal account(std::move(act));
        OpenAccount(Services(), UserId {1}, nullptr);
    }

    static void AddCreditOf(QWidget &window, const char *button, const QString &amount)
    {
        const WhileModal adding([&amount](QDialog &credit) {
            Type(Find<QLineEdit>(credit, "amount"), amount);
            Click(credit, "ok");
        });
        Click(window, button);
    }

    // What was told since the last call, as one text.
    std::string Told() { return prompt.TakeSaid().join(u" / ").toStdString(); }

    void DamageSettings()
    {
        QFile file(Settings().Folder() + u"/Software/Tollbrook/Network.toml"_s);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("timer = 5 sec\n");
    }
};

TEST_F(AccountFailures, AWindowThatCannotBeReadDoesNotOpen)
{
    AddOwners(AccountingMode::Provider);
    AddHistory();
    for (const Owner owner : {Owner(UserId {1}), Owner(GroupId {81})}) {
        ExpectOpensOrTells(
            Dsn(),
            prompt,
            [&] { OpenAccount(Services(), owner, nullptr); },
            u"The account could not be read.\n\nThe database refused it.\n"_s);
    }
    Execute("UPDATE users SET mode = 5");
    Execute("UPDATE groups SET mode = 1");
    for (const Owner owner : {Owner(UserId {1}), Owner(GroupId {81})}) {
        ExpectOpensOrTells(
            Dsn(),
            prompt,
            [&] { OpenStatistics(Services(), owner, nullptr); },
            u"The statistics could not be read.\n\nThe database refused it.\n"_s);
    }
}

TEST_F(AccountFailures, AHistoryThatCannotBeReadStaysAndIsSaidToBeUnread)
{
    AddOwners(AccountingMode::Provider);
    AddHistory();
    InAccount([this](QDialog &dialog) {
        EXPECT_FALSE(IsShown(dialog, "unread"));
        const QStringList before = Listed(dialog);
        {
            FaultyDriver driver(Dsn());
            driver.Refuse(1);
            Choose(Find<QComboBox>(dialog, "period"), u"Today"_s);
        }
        EXPECT_THAT(Told(), StartsWith("The credits could not be read.\n\nThe database refused"));
        EXPECT_EQ(Listed(dialog), before);
        EXPECT_TRUE(IsShown(dialog, "unread"));
        Click(dialog, "openOnly");
        EXPECT_EQ(Listed(dialog), QStringList());
        EXPECT_FALSE(IsShown(dialog, "unread"));
        dialog.reject();
    });
    EXPECT_EQ(Told(), "");
}

TEST_F(AccountFailures, TheAccountIsWrittenWholeOrStaysOpenWithEverything)
{
    AddOwners(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    AddHistory();
    InAccount([this](QDialog &dialog) {
        AddCreditOf(dialog, "addCredit", u"5"_s);
        AddCreditOf(dialog, "addCredit", u"7"_s);
        GoTo(dialog, 0);
        Click(dialog, "closeCredit");
        const QStringList listed = Listed(dialog);
        EXPECT_EQ(listed.size(), 4);
        ExpectStoresOrKeeps(Dsn(),
                            prompt,
                            dialog,
                            u"The account was not changed. Nothing was changed in the database."_s,
                            [&] { EXPECT_EQ(Listed(dialog), listed); });
    });
    EXPECT_EQ(RowsOf("SELECT data, closed FROM billing ORDER BY bill_id"),
              (QStringList {u"200.0|1"_s, u"100.0|0"_s, u"5.0|0"_s, u"7.0|0"_s}));
    EXPECT_EQ(RowsOf("SELECT blocked FROM users"), QStringList {u"0"_s});
}

TEST_F(AccountFailures, AnotherModeByNowIsToldAndNothingIsWritten)
{
    AddOwners(AccountingMode::Provider);
    InAccount([this](QDialog &dialog) {
        AddCreditOf(dialog, "addCredit", u"5"_s);
        Execute("UPDATE users SET mode = 1 WHERE user_id = 1");
        Click(dialog, "ok");
        EXPECT_THAT(Told(), StartsWith("The access type of this user has been changed to"));
        EXPECT_EQ(Listed(dialog).size(), 1);
        dialog.reject();
    });
    EXPECT_EQ(RowsOf("SELECT bill_id FROM billing"), QStringList());
}

TEST_F(AccountFailures, NothingIsWrittenWhereNothingWasStaged)
{
    AddOwners(AccountingMode::Provider);
    InAccount([this](QDialog &dialog) {
        FaultyDriver driver(Dsn());
        Click(dialog, "ok");
        EXPECT_EQ(driver.Take(), QStringList());
    });
}

TEST_F(AccountFailures, ThePageKeepsItsCreditsWhenTheyCannotBeReadAgain)
{
    AddOwners(AccountingMode::Provider);
    AddHistory();
    StagedAccount staged;
    CAdministratorUserPAcc page(Services(), UserId {1}, AccountingMode::Provider, staged);
    page.Load();
    page.Activate();
    page.show();
    AddCreditOf(page, "add", u"5"_s);
    const QStringList listed = Listed(page);
    EXPECT_EQ(listed.size(), 3);
    {
        FaultyDriver driver(Dsn());
        driver.Refuse(1);
        page.Activate();
    }
    EXPECT_THAT(Told(), StartsWith("The credits could not be read."));
    EXPECT_EQ(Listed(page), listed);
    EXPECT_TRUE(IsShown(page, "unread"));
    EXPECT_EQ(Find<QLineEdit>(page, "balance").text(), u"287.50"_s);

    staged.Clear();
    Execute("DELETE FROM billing WHERE data = 100");
    page.Activate();
    EXPECT_EQ(Listed(page).size(), 1);
    EXPECT_FALSE(IsShown(page, "unread"));
    EXPECT_EQ(Find<QLineEdit>(page, "balance").text(), u"187.50"_s);
    EXPECT_EQ(Told(), "");
}

TEST_F(AccountFailures, WithoutTheSettingsNoMoneyIsShownOrStored)
{
    AddOwners(AccountingMode::Provider);
    UseCurrency(u"2.5"_s);
    InAccount([this](QDialog &dialog) {
        AddCreditOf(dialog, "addCredit", u"5"_s);
        DamageSettings();
        Click(dialog, "ok");
        EXPECT_THAT(Told(), HasSubstr("Network.toml"));
        EXPECT_EQ(Listed(dialog).size(), 1);
        dialog.reject();
    });
    EXPECT_EQ(RowsOf("SELECT bill_id FROM billing"), QStringList());
    OpenAccount(Services(), UserId {1}, nullptr);
    EXPECT_THAT(Told(), StartsWith("Line 1 of the settings file"));

    StagedAccount staged;
    CAdministratorUserPAcc page(Services(), UserId {1}, AccountingMode::Provider, staged);
    page.Load();
    page.Activate();
    page.show();
    EXPECT_THAT(Told(), HasSubstr("Network.toml"));
    EXPECT_TRUE(IsShown(page, "unread"));
    Click(page, "add");
    EXPECT_THAT(Told(), HasSubstr("Network.toml"));
    EXPECT_TRUE(staged.IsEmpty());
}

} // namespace
