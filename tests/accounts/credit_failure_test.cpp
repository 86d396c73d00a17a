// A statement of a credit that fails: all of it or nothing, and nobody is told what did not come about.
#include "accounts/account_fixture.h"
#include "accounts/credit.h"
#include "service/service_link.h"
#include "support/core/fake_service.h"

using namespace Qt::StringLiterals;

namespace {

// A column that has another name for as long as this lives: the statements that name it fail.
class MissingColumn
{
public:
    MissingColumn(const char *tableName, const char *columnName)
        : table(tableName)
        , column(columnName)
    {
        Rename(column, column + "_away");
    }
    ~MissingColumn() { Rename(column + "_away", column); }
    MissingColumn(const MissingColumn &) = delete;
    MissingColumn &operator=(const MissingColumn &) = delete;

private:
    void Rename(const std::string &name, const std::string &newName) const
    {
        const std::string text =
            "ALTER TABLE " + table + " RENAME COLUMN " + name + " TO " + newName;
        RunQuery(text.c_str(), FetchMode::All);
        EXPECT_FALSE(LastFailure()) << qPrintable(LastFailure()->text);
    }

    std::string table;
    std::string column;
};

class CreditFailures : public AccountFixture
{
protected:
    Outcome Write(const Owner &owner, AccountingMode mode, const StagedAccount &staged)
    {
        return RunAction(WriteAccountAction(owner, mode, staged, 1.0), {}, link.get());
    }

    // Runs the action with the column missing and expects that it did nothing, for that reason.
    void ExpectNothingDone(const Owner &owner,
                           AccountingMode mode,
                           const StagedAccount &staged,
                           const char *table,
                           const char *column)
    {
        const QStringList before = EveryRow();
        Outcome outcome;
        {
            const MissingColumn missing(table, column);
            outcome = Write(owner, mode, staged);
        }
        EXPECT_EQ(outcome.state, Outcome::State::NotDone) << table << '.' << column;
        ASSERT_FALSE(outcome.failures.isEmpty());
        EXPECT_TRUE(outcome.failures.constFirst().statement.contains(QLatin1StringView(column)))
            << qPrintable(outcome.failures.constFirst().statement);
        EXPECT_FALSE(outcome.serviceTold);
        EXPECT_EQ(EveryRow(), before) << table << '.' << column;
    }

    PrivateBus bus;
    FakeService service {bus};
    std::unique_ptr<ServiceLink> link = [this] {
        service.OfferAccounting();
        return ServiceLink::Create(bus.Connection());
    }();
};

TB_ON_EVERY_ENGINE(CreditFailures);

TEST_P(CreditFailures, AReasonThatCannotBeReadLiftsNoBlock)
{
    const UserId user = AddUser(AccountingMode::Traffic, BlockReason::Administrator);
    const GroupId group = AddGroup(AccountingMode::Traffic, BlockReason::Administrator);
    const StagedAccount staged {{{Megabytes {5}, true, {}}}, {}};
    ExpectNothingDone(user, AccountingMode::Traffic, staged, "users", "blockreason");
    ExpectNothingDone(group, AccountingMode::Traffic, staged, "groups", "blockreason");
    EXPECT_EQ(service.TakeCalls(), QStringList());
}

TEST_P(CreditFailures, APeriodOrRecordThatCannotBeReadIsNotNone)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    const StagedAccount traffic {{{Megabytes {5}, true, {}}}, {}};
    const StagedAccount time {{{Hours {5}, true, {}}}, {}};
    const auto mode = AccountingMode::TrafficAndTime;
    ExpectNothingDone(user, mode, traffic, "users", "trafperiod");
    ExpectNothingDone(user, mode, traffic, "traffic_use", "period");
    ExpectNothingDone(user, mode, time, "users", "timeperiod");
    ExpectNothingDone(user, mode, time, "time_use", "period");
    const GroupId group = AddGroup(AccountingMode::Traffic);
    ExpectNothingDone(group, AccountingMode::Traffic, traffic, "groups", "trafperiod");
    ExpectNothingDone(group, AccountingMode::Traffic, traffic, "traffic_use", "period");
    EXPECT_EQ(service.TakeCalls(), QStringList());
}

TEST_P(CreditFailures, ACreditThatIsNotWrittenUnblocksNobody)
{
    const UserId user = AddUser(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    const StagedAccount staged {{{BaseUnits {5}, true, {}}}, {}};
    ExpectNothingDone(user, AccountingMode::Provider, staged, "billing", "moneydata");
    EXPECT_EQ(service.TakeCalls(), QStringList());
}

TEST_P(CreditFailures, OneOfSeveralUndoesTheOthersAndTheWordToTheService)
{
    const UserId user = AddUser(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    const BillId open = AddCredit("mode, object_id, data", "2, 1, 5");
    const StagedAccount credits {{{Megabytes {1}, true, {}}, {BaseUnits {5}, true, {}}}, {open}};
    ExpectNothingDone(user, AccountingMode::Provider, credits, "billing", "moneydata");
    EXPECT_EQ(service.TakeCalls(), (QStringList {u"UnblockUser 1"_s, u"BlockUser 1"_s}));
    const StagedAccount closing {{{Megabytes {1}, true, {}}}, {open}};
    ExpectNothingDone(user, AccountingMode::Provider, closing, "billing", "closed");
    EXPECT_EQ(service.TakeCalls(), (QStringList {u"UnblockUser 1"_s, u"BlockUser 1"_s}));

    EXPECT_TRUE(Write(user, AccountingMode::Provider, credits).IsDone());
    EXPECT_EQ(service.TakeCalls(), (QStringList {u"UnblockUser 1"_s, u"UnblockUser 1"_s}));
}

TEST_P(CreditFailures, AModeThatCannotBeReadIsNoOwnerGone)
{
    const UserId user = AddUser(AccountingMode::Provider);
    const StagedAccount staged {{{Megabytes {1}, true, {}}}, {}};
    ExpectNothingDone(user, AccountingMode::Provider, staged, "users", "mode");
}

} // namespace
