// The commands that begin with "credit".
#include "access/list_commands.h"
#include "accounts/credit.h"
#include "accounts/credit_entry.h"
#include "accounts/history.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/work.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"id", "Number", true},
                              {"made", "Made"},
                              {"kind", "Kind"},
                              {"amount", "Amount", true},
                              {"used", "Used", true},
                              {"balance", "Balance", true},
                              {"unit", "Unit"},
                              {"expires", "Expires"},
                              {"status", "Status"}};

QString KindWord(CreditKind kind)
{
    switch (kind) {
    case CreditKind::Traffic:
        return u"traffic"_s;
    case CreditKind::Money:
        return u"money"_s;
    case CreditKind::Unlimited:
        return u"unlimited"_s;
    case CreditKind::Time:
        return u"time"_s;
    }
    Q_UNREACHABLE();
}

QString StatusWord(HistoryStatus status)
{
    switch (status) {
    case HistoryStatus::New:
        return u"new"_s;
    case HistoryStatus::Active:
        return u"active"_s;
    case HistoryStatus::Expired:
        return u"expired"_s;
    case HistoryStatus::Closed:
        return u"closed"_s;
    }
    Q_UNREACHABLE();
}

// Money in the currency; an unlimited credit has no amount.
Cell AmountCell(const CreditAmount &amount, const Currency &currency)
{
    switch (KindOf(amount)) {
    case CreditKind::Unlimited:
        return {};
    case CreditKind::Money:
        return InCurrency(BaseUnits {NumberOf(amount)}, currency.rate);
    default:
        return NumberOf(amount);
    }
}

Cells CellsOf(const HistoryRow &row, const Currency &currency)
{
    const CreditKind kind = KindOf(row.amount);
    const bool isUnlimited = kind == CreditKind::Unlimited;
    const QDate lastDay = QDate::fromString(row.expiryDay, u"yyyy.MM.dd"_s);
    return {row.billId.value,
            row.made.toString(Qt::ISODate),
            KindWord(kind),
            AmountCell(row.amount, currency),
            AmountCell(row.used, currency),
            isUnlimited ? Cell() : AmountCell(row.balance, currency),
            isUnlimited ? QString() : UnitName(currency, kind),
            lastDay.isValid() ? Cell(lastDay.toString(Qt::ISODate)) : Cell(),
            StatusWord(row.status)};
}

struct Account
{
    NamedOwner owner;
    AccountingMode mode = AccountingMode::NoControl;
};

// Whoever is without control has no account, as in the windows.
Or<Account> OpenAccount(Work &work, const Given &given)
{
    const auto owner = FindOwner(work, given);
    if (!owner) {
        return tl::unexpected(owner.error());
    }
    const auto mode = work.Read([whose = owner->owner] { return ModeOf(whose); });
    if (!mode) {
        return tl::unexpected(mode.error());
    }
    if (!*mode) {
        return StopWith(ExitStatus::Refused, OwnerIsGoneText(owner->owner));
    }
    if (**mode == AccountingMode::NoControl) {
        return StopWith(ExitStatus::Refused,
                        u"%1 has no account: its mode is \"none\". \"tollbrook limit set\" gives "
                        "it another one."_s.arg(TextOf(*owner)));
    }
    return Account {*owner, **mode};
}

Or<std::vector<HistoryRow>> ReadCreditsOf(Work &work, const Account &account, bool openOnly)
{
    const HistoryFilter filter {
        account.owner.owner, account.mode, openOnly, HistoryPeriod::AllRecords};
    return work.Read([filter] { return ReadHistory(filter); });
}

Or<void> ListCredits(Work &work, const Given &given)
{
    const auto account = OpenAccount(work, given);
    const auto currency = account ? work.CurrencyNow() : tl::unexpected(account.error());
    if (!currency) {
        return tl::unexpected(currency.error());
    }
    auto rows = ReadCreditsOf(work, *account, given.Has(u"open"_s));
    if (!rows) {
        return tl::unexpected(rows.error());
    }
    AddUpBalances(*rows);
    Table table {kColumns, {}};
    for (const HistoryRow &row : *rows) {
        table.rows << CellsOf(row, *currency);
    }
    work.Print(table);
    return {};
}

struct TypedCredit
{
    CreditKind kind = CreditKind::Unlimited;
    double amount = 0; // megabytes, hours or the currency
};

// The one of the options that is given.
Or<TypedCredit> TypedBy(const Given &given)
{
    std::vector<Or<TypedCredit>> typed;
    const auto take =
        [&](const QString &option, CreditKind kind, Or<double> (*read)(const QString &)) {
            if (const auto text = given.Value(option)) {
                typed.push_back(read(*text).map([kind](double amount) {
                    return TypedCredit {kind, amount};
                }));
            }
        };
    take(u"traffic"_s, CreditKind::Traffic, MegabytesFrom);
    take(u"time"_s, CreditKind::Time, HoursFrom);
    take(u"money"_s, CreditKind::Money, AmountOf);
    if (given.Has(u"unlimited"_s)) {
        typed.emplace_back(TypedCredit {});
    }
    if (typed.size() != 1) {
        return WrongUse(u"Name one of --traffic, --time, --money and --unlimited."_s);
    }
    return typed.front();
}

// An expiry day that is not valid stands for none.
Or<StagedCredit>
CreditOf(const TypedCredit &typed, QDate expiry, const Account &account, const Currency &currency)
{
    const auto kinds = CreditKindsFor(account.owner.owner, account.mode);
    if (!kinds.contains(typed.kind)) {
        QStringList words;
        std::ranges::transform(kinds, std::back_inserter(words), KindWord);
        return StopWith(ExitStatus::Refused,
                        u"Mode \"%1\" takes these credits: %2."_s.arg(WordOf(account.mode),
                                                                      words.join(u", "_s)));
    }
    if (expiry.isValid() && !kinds.contains(CreditKind::Unlimited)) {
        return StopWith(
            ExitStatus::Refused,
            u"A credit that extends a limit ends with the period; it has no --until."_s);
    }
    auto problem = CheckAmount(typed.kind, typed.amount, currency.rate);
    if (!problem && expiry.isValid()) {
        problem = CheckExpiry(expiry);
    }
    if (problem) {
        return StopWith(ExitStatus::Refused, *problem);
    }
    return CreditFrom(typed.kind, typed.amount, currency.rate, expiry);
}

Or<void> Write(Work &work,
               const Account &account,
               const StagedAccount &staged,
               const Currency &currency,
               const QString &sentence)
{
    return work
        .Perform(WriteAccountAction(account.owner.owner, account.mode, staged, currency.rate))
        .map([&](const Performed &performed) { work.Print(performed, sentence); });
}

Or<void> AddCredit(Work &work, const Given &given)
{
    const auto typed = TypedBy(given);
    const auto until = given.Value(u"until"_s);
    const auto expiry = until ? DateFrom(*until) : Or<QDate>(QDate());
    if (!typed || !expiry) {
        return tl::unexpected(typed ? expiry.error() : typed.error());
    }
    const auto account = OpenAccount(work, given);
    const auto currency = account ? work.CurrencyNow() : tl::unexpected(account.error());
    if (!currency) {
        return tl::unexpected(currency.error());
    }
    return CreditOf(*typed, *expiry, *account, *currency).and_then([&](const StagedCredit &credit) {
        return Write(work,
                     *account,
                     {.credits = {credit}, .closed = {}},
                     *currency,
                     u"%1 was given a credit."_s.arg(TextOf(account->owner)));
    });
}

// The credits of the numbers, each of which must be one of the account's that is not closed.
Or<std::vector<BillId>> OpenCreditsOf(const std::vector<HistoryRow> &rows,
                                      const QStringList &numbers)
{
    std::vector<BillId> ids;
    for (const QString &number : numbers) {
        const auto row = std::ranges::find_if(rows, [&number](const HistoryRow &each) {
            return QString::number(each.billId.value) == QString(number).remove(u'#');
        });
        if (row == rows.end()) {
            return StopWith(
                ExitStatus::Refused,
                u"The account has no credit %1; see \"tollbrook credit list\"."_s.arg(number));
        }
        if (row->status == HistoryStatus::Closed) {
            return StopWith(ExitStatus::Refused, u"Credit %1 is closed already."_s.arg(number));
        }
        ids.push_back(row->billId);
    }
    return ids;
}

Or<void> CloseCredits(Work &work, const Given &given)
{
    const QStringList numbers =
        given.Value(u"credit"_s).value_or(QString()).split(u',', Qt::SkipEmptyParts);
    if (numbers.isEmpty()) {
        return WrongUse(
            u"Name the credits to close with --credit, as \"credit list\" numbers them."_s);
    }
    const auto account = OpenAccount(work, given);
    const auto currency = account ? work.CurrencyNow() : tl::unexpected(account.error());
    if (!currency) {
        return tl::unexpected(currency.error());
    }
    return ReadCreditsOf(work, *account, false)
        .and_then([&](const std::vector<HistoryRow> &rows) { return OpenCreditsOf(rows, numbers); })
        .and_then([&](const std::vector<BillId> &ids) {
            return Write(work,
                         *account,
                         {.credits = {}, .closed = ids},
                         *currency,
                         ids.size() == 1 ? u"The credit was closed."_s
                                         : u"%1 credits were closed."_s.arg(ids.size()));
        });
}

} // namespace

Commands CreditCommands()
{
    return {
        {"credit list",
         "USER|--group GROUP",
         "Lists the credits of a user or a group, oldest first.",
         0,
         1,
         {kOwnerGroup, {"open", nullptr, "Leaves out those that are closed."}},
         ListCredits},
        {"credit add",
         "USER|--group GROUP",
         "Gives a user or a group a credit.",
         0,
         1,
         {kOwnerGroup,
          {"traffic", "AMOUNT", "A credit of traffic, as 500MB or 2GB."},
          {"time", "AMOUNT", "A credit of time, as 2h or 90min."},
          {"money", "AMOUNT", "A credit of money, in the currency that is in use."},
          {"unlimited", nullptr, "A credit without a bound."},
          {"until", "DAY", "The last day on which a pre-paid credit counts, as 2026-12-31."}},
         AddCredit},
        {"credit close",
         "USER|--group GROUP --credit NUMBERS",
         "Closes credits of a user or a group.",
         0,
         1,
         {kOwnerGroup, {"credit", "NUMBERS", "The credits, as \"credit list\" numbers them: 4,7."}},
         CloseCredits}};
}
