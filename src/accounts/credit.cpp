#include "accounts/credit.h"

#include "access/access_mode.h"
#include "access/blocking.h"
#include "access/usage_records.h"
#include "actions/action_run.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Credit)
};

// A pre-paid credit without and with an expiry day.
struct ExpiryPair
{
    const char *never;
    const char *onDay;
};

struct CreditStatements
{
    const char *blockReason;
    const char *limitTraffic;
    ExpiryPair traffic;
    ExpiryPair money;
    ExpiryPair unlimited;
};

constexpr CreditStatements kUserStatements {
    "SELECT blockreason FROM users WHERE user_id = (?) ",
    "INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), (?), (?))",
    {"INSERT INTO billing (mode, object_id, data, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, object_id, data, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, object_id, moneydata, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, object_id, moneydata, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, object_id, unlimited) VALUES (2, (?), 1)",
     "INSERT  INTO billing (mode, object_id, unlimited, expiredday) VALUES (2, (?), 0, (?))"},
};

constexpr CreditStatements kGroupStatements {
    "SELECT blockreason FROM groups WHERE group_id = (?) ",
    "INSERT INTO billing (mode, trafid, group_id, data) VALUES (1, (?), (?), (?))",
    {"INSERT INTO billing (mode, group_id, data, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, group_id, data, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, group_id, moneydata, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, group_id, moneydata, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, group_id, unlimited) VALUES (2, (?), 1)",
     "INSERT  INTO billing (mode, group_id, unlimited, expiredday) VALUES (2, (?), 0, (?))"},
};

const CreditStatements &TextsOf(const Owner &owner)
{
    return owner.IsUser() ? kUserStatements : kGroupStatements;
}

// What the credits need to know of their owner, read before the first of them is written.
struct OwnerNow
{
    BlockReason reason = BlockReason::None;
    TrafficRecordId traffic; // of the current accounting period
    TimeRecordId time;
};

// A stored code; the empty one for an owner that is gone.
template <typename CodeType>
Result<CodeType> ReadCode(const char *sqlText, quint32 owner)
{
    return ReadOne(
               sqlText, [](const Row &row) { return row.Code<CodeType>(1); }, owner)
        .map([](const std::optional<CodeType> &code) { return code.value_or(CodeType {}); });
}

Result<TrafficRecordId> CurrentTrafficRecord(const Owner &owner)
{
    if (!owner.IsUser()) {
        return FindGroupTrafficRecord(owner.Group());
    }
    return ReadCode<LimitPeriod>("SELECT trafperiod FROM users WHERE user_id = (?)", owner.Number())
        .and_then([&](LimitPeriod period) {
            return FindUserTrafficRecord(owner.User(), UsagePeriodOf(period));
        });
}

Result<TimeRecordId> CurrentTimeRecord(UserId userId)
{
    return ReadCode<LimitPeriod>("SELECT timeperiod FROM users WHERE user_id = (?)", userId.value)
        .and_then(
            [&](LimitPeriod period) { return FindUserTimeRecord(userId, UsagePeriodOf(period)); });
}

bool IsOfTime(const StagedCredit &credit)
{
    return credit.Kind() == CreditKind::Time;
}

OwnerNow ReadOwner(ActionRun &run,
                   const Owner &owner,
                   AccountingMode ownerMode,
                   const std::vector<StagedCredit> &credits)
{
    OwnerNow now;
    now.reason = run.Take(ReadCode<BlockReason>(TextsOf(owner).blockReason, owner.Number()));
    const bool extends = IsLimitMode(ownerMode);
    if (extends && !std::all_of(credits.begin(), credits.end(), IsOfTime)) {
        now.traffic = run.Take(CurrentTrafficRecord(owner));
    }
    if (extends && std::any_of(credits.begin(), credits.end(), IsOfTime)) {
        now.time = run.Take(CurrentTimeRecord(owner.User()));
    }
    return now;
}

void WriteLimitCredit(ActionRun &run,
                      const Owner &owner,
                      const OwnerNow &now,
                      const StagedCredit &credit)
{
    if (IsOfTime(credit)) {
        run.Write("INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, (?), (?), (?))",
                  now.time,
                  owner.User(),
                  NumberOf(credit.amount));
    } else {
        run.Write(
            TextsOf(owner).limitTraffic, now.traffic, owner.Number(), NumberOf(credit.amount));
    }
}

template <typename... Values>
void WriteWithExpiry(ActionRun &run,
                     const ExpiryPair &texts,
                     const StagedCredit &credit,
                     const Values &...values)
{
    if (credit.neverExpires) {
        run.Write(texts.never, values...);
    } else {
        run.Write(texts.onDay, values..., credit.expiryDay);
    }
}

void WritePrepaidCredit(ActionRun &run, const Owner &owner, const StagedCredit &credit, double rate)
{
    const CreditStatements &texts = TextsOf(owner);
    if (credit.Kind() == CreditKind::Unlimited) {
        WriteWithExpiry(run, texts.unlimited, credit, owner.Number());
        return;
    }
    const auto &pair = credit.Kind() == CreditKind::Money ? texts.money : texts.traffic;
    WriteWithExpiry(run, pair, credit, owner.Number(), NumberOf(credit.amount), rate);
}

void LiftBlock(ActionRun &run, const Owner &owner)
{
    if (owner.IsUser()) {
        UnblockUser(run, owner.User());
    } else {
        LiftGroupBlock(run, owner.Group());
    }
}

void WriteCredits(ActionRun &run,
                  const Owner &owner,
                  AccountingMode ownerMode,
                  const std::vector<StagedCredit> &credits,
                  double rate)
{
    if (credits.empty() || run.IsStopped()) {
        return;
    }
    const OwnerNow now = ReadOwner(run, owner, ownerMode, credits);
    for (const StagedCredit &credit : credits) {
        if (run.IsStopped()) {
            return;
        }
        if (IsLimitMode(ownerMode)) {
            WriteLimitCredit(run, owner, now, credit);
        } else {
            WritePrepaidCredit(run, owner, credit, rate);
        }
        const bool lifts = credit.MayUnblock() && now.reason != BlockReason::Administrator;
        if (lifts && !run.IsStopped()) {
            LiftBlock(run, owner);
        }
    }
}

// With those whom a credit may unblock.
void LockOwner(ActionRun &run, const Owner &owner, const StagedAccount &staged)
{
    if (owner.IsUser()) {
        run.Lock({"users", "user_id", owner.Number(), "user_id"});
        return;
    }
    run.Lock({"groups", "group_id", owner.Number(), "group_id"});
    if (staged.MayUnblock()) {
        run.Lock({"users", "group_id", owner.Number(), "user_id"});
    }
}

QString OtherModeText(const Owner &owner, AccountingMode modeNow)
{
    const QString text = owner.IsUser()
        ? Words::tr(
            "The access type of this user has been changed to \"%1\" meanwhile. Nothing was "
            "changed. Please open the window again to go on.")
        : Words::tr(
            "The access type of this group has been changed to \"%1\" meanwhile. Nothing was "
            "changed. Please open the window again to go on.");
    return text.arg(AccessTypeText(modeNow));
}

} // namespace

QString OwnerIsGoneText(const Owner &owner)
{
    return owner.IsUser()
        ? Words::tr("This user is no longer in the database. Nothing was changed")
        : Words::tr("This group is no longer in the database. Nothing was changed");
}

void WriteStagedAccount(ActionRun &run,
                        const Owner &owner,
                        const OwnerModes &modes,
                        const StagedAccount &staged,
                        double rate)
{
    if (staged.IsEmpty() || run.IsStopped()) {
        return;
    }
    if (modes.now != modes.chosenFor) {
        run.Refuse(OtherModeText(owner, modes.now));
    }
    run.Watch({"billing", owner.IsUser() ? "object_id" : "group_id", owner.Number(), "bill_id"});
    WriteCredits(run, owner, modes.now, staged.credits, rate);
    for (const BillId billId : staged.closed) {
        run.Write("UPDATE billing SET closed = 1 WHERE bill_id = (?)", billId);
    }
}

Action WriteAccountAction(const Owner &owner,
                          AccountingMode openedWith,
                          const StagedAccount &staged,
                          double rate)
{
    return {ActionId::WriteAccount, [=](ActionRun &run) {
                LockOwner(run, owner, staged);
                if (const auto modeNow = run.Take(ModeOf(owner))) {
                    WriteStagedAccount(run, owner, {openedWith, *modeNow}, staged, rate);
                } else {
                    run.Refuse(OwnerIsGoneText(owner));
                }
            }};
}

void WriteFirstCredits(ActionRun &run,
                       const std::vector<std::pair<UserId, StagedCredit>> &credits,
                       double rate)
{
    StagedRows traffic;
    StagedRows money;
    StagedRows unlimited;
    for (const auto &[userId, credit] : credits) {
        StagedRows &rows = credit.Kind() == CreditKind::Unlimited
            ? unlimited
            : (credit.Kind() == CreditKind::Money ? money : traffic);
        const double neverExpires = credit.neverExpires ? 1.0 : 0.0;
        const QString day = credit.neverExpires ? u""_s : credit.expiryDay;
        rows.Add(userId.value, {NumberOf(credit.amount), rate, neverExpires}, {day});
    }
    const auto write = [&run](const char *sqlText, const StagedRows &rows) {
        if (!rows.IsEmpty()) {
            run.Write(sqlText, rows);
        }
    };
    write("INSERT INTO billing (mode, object_id, data, currencydata, unlimited, expiredday) "
          "SELECT 2, s.k, s.n1, s.n2, s.n3, s.t FROM STAGED (?) AS_ROWS s",
          traffic);
    write("INSERT INTO billing (mode, object_id, moneydata, currencydata, unlimited, expiredday) "
          "SELECT 2, s.k, s.n1, s.n2, s.n3, s.t FROM STAGED (?) AS_ROWS s",
          money);
    write("INSERT INTO billing (mode, object_id, unlimited, expiredday) "
          "SELECT 2, s.k, s.n3, s.t FROM STAGED (?) AS_ROWS s",
          unlimited);
}
