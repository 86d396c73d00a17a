#include "ui/accounts/account_page.h"

#include "accounts/credit.h"
#include "ui/accounts/account_window_fixture.h"
#include "ui/common/sheet.h"

using namespace Qt::StringLiterals;

namespace {

// The page in a sheet of its own, active and on the screen.
class HostedPage : public AccountWindowFixture
{
protected:
    template <typename PageType, typename IdType>
    QWidget &Host(IdType id, AccountingMode ownerMode)
    {
        sheet = std::make_unique<Sheet>(u"Properties"_s, nullptr);
        auto *page = new PageType(Services(), id, ownerMode, staged);
        sheet->Add(page);
        sheet->Start(0);
        sheet->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(sheet.get()));
        return *page;
    }

    void Add(QWidget &page, const QString &amount)
    {
        const WhileModal adding([&](QDialog &credit) {
            Type(Find<QLineEdit>(credit, "amount"), amount);
            Click(credit, "ok");
        });
        Click(page, "add");
    }

    StagedAccount staged;
    std::unique_ptr<Sheet> sheet;
};

TEST_F(HostedPage, StagesOneCreditAndCloseMarks)
{
    AddOwners(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    UseCurrency(u"2.5"_s);
    AddCredit("mode, object_id, date, moneydata, unlimited", "2, 1, '2026-11-05 10:00:00', 4, 1");
    AddCredit("mode, object_id, date, data, closed", "2, 1, '2026-11-04 10:00:00', 9, 1");
    const QStringList before = EveryRow();
    QWidget &page = Host<CAdministratorUserPAcc>(UserId {1}, AccountingMode::Provider);
    const QString open = u"1|2026-11-05|10|Euro|0.00|0|Unlimited|Active"_s;
    EXPECT_EQ(Listed(page)[0], open);
    EXPECT_EQ(Find<QLineEdit>(page, "balance").text(), u"0.00"_s);

    Find<QTreeWidget>(page, "credits").clearSelection();
    Click(page, "close");
    Click(page, "delete");
    GoTo(page, 1);
    Click(page, "close");
    Click(page, "delete");
    EXPECT_EQ(prompt.TakeSaid(),
              (QStringList {u"Select the item to close"_s,
                            u"Select the item to delete"_s,
                            u"Cannot close Expired or New account"_s,
                            u"Cannot delete Expired or Active account"_s}));
    prompt.AnswerWith({false, true});
    GoTo(page, 0);
    Click(page, "close");
    EXPECT_EQ(Listed(page)[0], open) << "answered No";
    Click(page, "close");
    EXPECT_EQ(Listed(page)[0], u"1|2026-11-05|10|Euro|0.00|0|Unlimited|Expired"_s);
    EXPECT_EQ(prompt.TakeSaid().last(), u"You are about to close this credit. Continue?"_s);

    Add(page, u"12.5"_s);
    EXPECT_EQ(Listed(page)[2], u"3|2026-11-21|12.50|Mbytes|||Unlimited|New"_s);
    EXPECT_FALSE(Find<QWidget>(page, "add").isEnabled());
    Grab(*sheet, u"account-page"_s);
    Click(page, "delete");
    EXPECT_TRUE(Find<QWidget>(page, "add").isEnabled());
    EXPECT_TRUE(staged.credits.empty());
    Add(page, u"20"_s);
    EXPECT_EQ(EveryRow(), before) << "nothing is written by the page";

    EXPECT_EQ(staged.closed, std::vector {BillId {1}});
    const Action write = WriteAccountAction(UserId {1}, AccountingMode::Provider, staged, 2.5);
    EXPECT_TRUE(RunAction(write, {}, nullptr).IsDone());
    EXPECT_EQ(RowsOf("SELECT bill_id, closed FROM billing ORDER BY bill_id"),
              (QStringList {u"1|1"_s, u"2|1"_s, u"3|0"_s}));
}

TEST_F(HostedPage, ShowsItsStagedValuesAgainWhenItReturns)
{
    AddOwners(AccountingMode::Traffic);
    AddCredit("mode, object_id, data", "1, 1, 50");
    staged.credits = {{Megabytes {3}, true, {}}};
    staged.closed = {BillId {1}};
    QWidget &page = Host<CAdministratorUserPAcc>(UserId {1}, AccountingMode::Traffic);
    EXPECT_EQ(Listed(page).size(), 2);
    EXPECT_TRUE(Listed(page)[0].endsWith(u"|50.00|0.00|Expired|Mbytes"_s));
    EXPECT_TRUE(Listed(page)[1].endsWith(u"|3||New|Mbytes"_s));
    EXPECT_FALSE(IsShown(page, "balance"));
    staged.Clear();
    static_cast<AccountPage &>(page).Activate();
    EXPECT_EQ(Listed(page).size(), 1);
    EXPECT_TRUE(Find<QWidget>(page, "add").isEnabled());
}

TEST_F(HostedPage, OfAGroupAddsByItsModeOnly)
{
    AddOwners(AccountingMode::Traffic);
    QWidget &page = Host<CAdministratorGroupPAcc>(GroupId {81}, AccountingMode::Traffic);
    Add(page, u"1"_s);
    EXPECT_TRUE(Listed(page).value(0).endsWith(u"|1||New|Mbytes"_s));
    staged.Clear();
    for (const AccountingMode other :
         {AccountingMode::NoControl, AccountingMode::Time, AccountingMode::TrafficAndTime}) {
        Execute("UPDATE groups SET mode = (?) WHERE group_id = 81", other);
        QWidget &none = Host<CAdministratorGroupPAcc>(GroupId {81}, other);
        Click(none, "add");
        EXPECT_EQ(QApplication::activeModalWidget(), sheet.get()) << static_cast<quint32>(other);
        EXPECT_TRUE(staged.IsEmpty());
    }
    Execute("UPDATE groups SET mode = 2 WHERE group_id = 81");
    QWidget &prepaid = Host<CAdministratorGroupPAcc>(GroupId {81}, AccountingMode::Provider);
    Add(prepaid, u"1"_s);
    EXPECT_TRUE(Listed(prepaid).value(0).endsWith(u"|1.00|Mbytes|||Unlimited|New"_s));
}

TEST_F(HostedPage, OfAUserWithoutControlStagesAPrePaidCredit)
{
    AddOwners(AccountingMode::NoControl);
    QWidget &page = Host<CAdministratorUserPAcc>(UserId {1}, AccountingMode::NoControl);
    Add(page, u"7"_s);
    EXPECT_EQ(Listed(page), QStringList {u"1|2026-11-21|7.00|Mbytes|||Unlimited|New"_s});
    Click(page, "delete");
    EXPECT_TRUE(staged.IsEmpty());
}

TEST_F(HostedPage, KeepsAHundredCreditsAndOneMore)
{
    AddOwners(AccountingMode::Traffic);
    for (int i = 0; i < 130; ++i) {
        AddCredit("mode, object_id, data", "1, 1, 50");
    }
    QWidget &page = Host<CAdministratorUserPAcc>(UserId {1}, AccountingMode::Traffic);
    EXPECT_EQ(Listed(page).size(), 100);
    Add(page, u"1"_s);
    EXPECT_EQ(Listed(page).size(), 101);
}

} // namespace
