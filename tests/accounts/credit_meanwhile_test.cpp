// A credit while another console, or the service, has changed its owner or is just doing so.
#include "accounts/account_fixture.h"
#include "accounts/credit.h"
#include "db/direct_connection.h"
#include "support/core/statement_hook.h"

#include <chrono>
#include <future>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

class CreditMeanwhile : public AccountFixture
{ };

TB_ON_EVERY_ENGINE(CreditMeanwhile);

TEST_P(CreditMeanwhile, OneThatIsClosedAlreadyOrGoneIsNoneToClose)
{
    const UserId user = AddUser(AccountingMode::Provider);
    const BillId open = AddCredit("mode, object_id, data", "2, 1, 5");
    const BillId closed = AddCredit("mode, object_id, data, closed", "2, 1, 6, 1");
    const BillId gone = AddCredit("mode, object_id, data", "2, 1, 7");
    Execute("DELETE FROM billing WHERE bill_id = (?)", gone);
    EXPECT_TRUE(Write(user, AccountingMode::Provider, {{}, {gone, closed, open}}).IsDone());
    EXPECT_EQ(RowsOf("SELECT data, closed FROM billing ORDER BY bill_id"),
              RowsOf("SELECT data, 1 FROM billing ORDER BY bill_id"));
    EXPECT_TRUE(IsBlocked(user)) << "closing unblocks nobody";
    const QStringList before = EveryRow();
    const Outcome again = Write(user, AccountingMode::Provider, {{}, {gone, closed, open}});
    EXPECT_TRUE(again.IsDone());
    EXPECT_TRUE(again.changes.isEmpty());
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(CreditMeanwhile, NothingIsWrittenForAnOwnerThatIsGone)
{
    const std::pair<Owner, QString> cases[] = {
        {UserId {4711}, u"This user is no longer in the database. Nothing was changed"_s},
        {GroupId {4711}, u"This group is no longer in the database. Nothing was changed"_s},
    };
    for (const auto &[gone, text] : cases) {
        const BillId credit = AddCredit("mode, object_id, data", "2, 4711, 5");
        const QStringList before = EveryRow();
        StatementRecorder recorder;
        const Outcome outcome =
            Write(gone, AccountingMode::Provider, {{{Megabytes {1}, true, {}}}, {credit}});
        EXPECT_EQ(outcome.state, Outcome::State::Refused);
        EXPECT_EQ(InWords(ActionId::WriteAccount, outcome), text);
        EXPECT_EQ(recorder.TakeChanging(), QStringList());
        EXPECT_EQ(EveryRow(), before);
    }
}

TEST_P(CreditMeanwhile, NothingIsWrittenForAnOwnerWithAnotherModeByNow)
{
    struct Case
    {
        AccountingMode openedWith;
        AccountingMode now;
        const char *name;
    };
    const Case cases[] = {
        {AccountingMode::Traffic, AccountingMode::Provider, "Provider"},
        {AccountingMode::Provider, AccountingMode::Traffic, "Corporate, traffic control"},
        {AccountingMode::TrafficAndTime, AccountingMode::Time, "Corporate, time control"},
        {AccountingMode::Traffic,
         AccountingMode::TrafficAndTime,
         "Corporate, traffic and time control"},
        {AccountingMode::Provider, AccountingMode::NoControl, "No control"},
    };
    for (const auto &[openedWith, now, name] : cases) {
        for (const Owner &owner : {Owner(AddUser(now)), Owner(AddGroup(now))}) {
            const BillId credit = AddCredit("mode, object_id, data", "2, 4711, 5");
            const QStringList before = EveryRow();
            for (const StagedAccount &staged :
                 {StagedAccount {{{Megabytes {1}, true, {}}}, {}}, StagedAccount {{}, {credit}}}) {
                const Outcome outcome = Write(owner, openedWith, staged);
                EXPECT_EQ(outcome.state, Outcome::State::Refused);
                EXPECT_EQ(InWords(ActionId::WriteAccount, outcome),
                          u"The access type of this %1 has been changed to \"%2\" meanwhile. "
                          "Nothing was changed. Please open the window again to go on."_s.arg(
                              owner.IsUser() ? u"user"_s : u"group"_s, QLatin1StringView(name)));
                EXPECT_EQ(EveryRow(), before);
            }
        }
    }
}

// Sends a change and looks whether it waits.
class OtherConsole
{
public:
    explicit OtherConsole(const QString &dsn)
    {
        EXPECT_TRUE(connection.Open(dsn)) << qPrintable(connection.Error());
    }

    void Send(const QString &change)
    {
        changed = std::async(std::launch::async, [=, this] { return connection.Run(change); });
        waits = changed.wait_for(std::chrono::milliseconds(300)) == std::future_status::timeout;
    }

    [[nodiscard]] bool Waited()
    {
        EXPECT_TRUE(changed.get()) << qPrintable(connection.Error());
        return waits;
    }

private:
    DirectConnection connection;
    std::future<bool> changed;
    bool waits = false;
};

class CreditBeside : public AccountFixture
{
protected:
    // Whether `change`, sent at the moment when the action looks at the mode, waits for its end.
    static bool Waits(const Owner &owner, const QString &change)
    {
        OtherConsole other(Dsn());
        {
            const StatementHook hook([&](const QString &statement) {
                if (statement.startsWith(u"SELECT mode"_s)) {
                    other.Send(change);
                }
            });
            GiveCredit(owner, AccountingMode::Provider, {Megabytes {1}, true, {}});
        }
        return other.Waited();
    }
};

TB_ON_EVERY_SERVER(CreditBeside);

TEST_P(CreditBeside, AnotherConsoleChangesNeitherModeNorBlock)
{
    const UserId user = AddUser(AccountingMode::Provider);
    EXPECT_TRUE(Waits(user, u"UPDATE users SET mode = 1"_s));
    EXPECT_EQ(RowsOf("SELECT mode, blocked FROM users"), QStringList {u"1|0"_s});
    const GroupId group = AddGroup(AccountingMode::Provider);
    Execute("UPDATE users SET group_id = (?)", group);
    EXPECT_TRUE(Waits(group, u"UPDATE groups SET mode = 1 WHERE group_id = 81"_s));
    Execute("UPDATE groups SET mode = 2 WHERE group_id = 81");
    EXPECT_TRUE(Waits(group, u"UPDATE users SET blocked = 1, blockreason = 3"_s));
    EXPECT_EQ(RowsOf("SELECT blocked, blockreason FROM users"), QStringList {u"1|3"_s});
}

} // namespace
