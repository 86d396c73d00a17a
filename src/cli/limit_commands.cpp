// The commands that begin with "limit": what a user or a group may use in an accounting period.
#include "access/account_use.h"
#include "base/day.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owner_sheets.h"

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"owner", "Of"},
                              {"id", "Number"},
                              {"name", "Name"},
                              {"mode", "Mode"},
                              {"trafficLimit", "Traffic limit, MB"},
                              {"timeLimit", "Time limit, h"},
                              {"period", "Period"},
                              {"price", "Own price per MB"},
                              {"used", "Used"},
                              {"left", "Left"},
                              {"unit", "Unit"}};

struct OwnerLimits
{
    AccountingMode mode = AccountingMode::NoControl;
    Limits limits;
    std::optional<AccountUse> use;
};

Result<std::optional<AccountUse>> ReadUse(const Owner &owner, AccountMoment moment)
{
    if (owner.IsUser()) {
        return ReadAccountUses({owner.User()}, moment).map([&owner](const AccountUses &uses) {
            const auto use = uses.constFind(owner.User());
            return use == uses.constEnd() ? std::nullopt : std::optional(*use);
        });
    }
    return ReadAllGroupRules(moment).map([&](const GroupRules &groups) {
        return AccountUseOf(groups.value(owner.Group()), moment.today);
    });
}

// Nothing when the owner is gone.
Result<std::optional<OwnerLimits>> ReadOwnerLimits(const Owner &owner, AccountMoment moment)
{
    const auto mode = ModeOf(owner);
    const auto limits = ReadLimits(owner);
    const auto use = ReadUse(owner, moment);
    if (!mode || !limits || !use) {
        return tl::unexpected(!mode ? mode.error() : (!limits ? limits.error() : use.error()));
    }
    if (!*mode || !*limits) {
        return std::nullopt;
    }
    return OwnerLimits {**mode, **limits, *use};
}

Cells CellsOf(const NamedOwner &owner, const OwnerLimits &read, const Currency &currency)
{
    const LimitFields fields = FieldsFor(read.mode);
    return Cells {owner.owner.IsUser() ? u"user"_s : u"group"_s,
                  owner.owner.Number(),
                  owner.name,
                  WordOf(read.mode),
                  fields.traffic ? Cell(read.limits.traffic.value) : Cell(),
                  fields.time ? Cell(read.limits.time.value) : Cell(),
                  fields.period ? Cell(WordOf(PeriodIn(read.mode, read.limits))) : Cell(),
                  fields.rates && read.limits.ownPrice ? Cell(read.limits.price) : Cell()}
    + UseCells(read.use, currency);
}

Or<void> ShowLimits(Work &work, const Given &given)
{
    const auto owner = FindOwner(work, given);
    const auto currency = owner ? work.CurrencyNow() : tl::unexpected(owner.error());
    if (!currency) {
        return tl::unexpected(currency.error());
    }
    const AccountMoment moment = work.AccountsNow();
    const auto read = ReadOf(
        work, *owner, [whose = owner->owner, moment] { return ReadOwnerLimits(whose, moment); });
    if (!read) {
        return tl::unexpected(read.error());
    }
    work.Print(kColumns, CellsOf(*owner, *read, *currency));
    return {};
}

// What was given, none of it applied yet.
struct WantedLimits
{
    std::optional<AccountingMode> mode;
    std::optional<WholeMegabytes> traffic;
    std::optional<WholeHours> time;
    std::optional<LimitPeriod> period;
    std::optional<double> price;
    bool globalPrice = false;
};

// Reads an option where it is given. False after the first one that cannot be read.
template <typename Value, typename Reader>
bool Take(const Given &given,
          const QString &option,
          const Reader &reader,
          std::optional<Value> &value,
          std::optional<Stop> &stop)
{
    const auto text = given.Value(option);
    if (!text || stop) {
        return !stop;
    }
    const Or<Value> read = reader(*text);
    if (!read) {
        stop = read.error();
        return false;
    }
    value = *read;
    return true;
}

Or<double> PriceFrom(const QString &text)
{
    const auto price = AmountOf(text);
    if (price && *price > kPriceBounds.most) {
        return WrongUse(u"A price goes up to 1000000000."_s);
    }
    if (price && text.section(u'.', 1).trimmed().size() > kPriceBounds.decimals) {
        return WrongUse(u"A price has at most %1 decimals."_s.arg(kPriceBounds.decimals));
    }
    return price;
}

Or<WantedLimits> WantedBy(const Given &given)
{
    WantedLimits wanted;
    std::optional<Stop> stop;
    Take(given, u"mode"_s, ModeFrom, wanted.mode, stop);
    Take(given, u"traffic"_s, TrafficLimitFrom, wanted.traffic, stop);
    Take(given, u"time"_s, TimeLimitFrom, wanted.time, stop);
    Take(given, u"period"_s, PeriodFrom, wanted.period, stop);
    Take(given, u"price"_s, PriceFrom, wanted.price, stop);
    wanted.globalPrice = given.Has(u"global-price"_s);
    if (stop) {
        return tl::unexpected(*stop);
    }
    if (wanted.price && wanted.globalPrice) {
        return WrongUse(u"Name either --price or --global-price."_s);
    }
    return wanted;
}

// What the mode that the owner then has does not limit is refused: it would be stored and never count.
std::optional<QString> Misfit(const WantedLimits &wanted, const Owner &owner, AccountingMode mode)
{
    const LimitFields fields = FieldsFor(mode);
    const bool isOfUsers = mode == AccountingMode::Time || mode == AccountingMode::TrafficAndTime;
    if (isOfUsers && !owner.IsUser() && wanted.mode) {
        return u"A group has no time limit: its mode is none, traffic or provider."_s;
    }
    const QString text = u"Mode \"%1\" has no %2; another one is set with --mode."_s;
    if (wanted.traffic && !fields.traffic) {
        return text.arg(WordOf(mode), u"traffic limit"_s);
    }
    if (wanted.time && !fields.time) {
        return text.arg(WordOf(mode), u"time limit"_s);
    }
    if (wanted.period && !fields.period) {
        return text.arg(WordOf(mode), u"accounting period"_s);
    }
    if ((wanted.price || wanted.globalPrice) && !fields.rates) {
        return text.arg(WordOf(mode), u"price"_s);
    }
    return std::nullopt;
}

void Stage(const WantedLimits &wanted, LimitsDraft &draft)
{
    draft.traffic = wanted.traffic;
    draft.time = wanted.time;
    draft.period = wanted.period;
    draft.price = wanted.price;
    if (wanted.price || wanted.globalPrice) {
        draft.ownPrice = wanted.price.has_value();
    }
}

// Of either kind of sheet.
template <typename Record>
Or<void> StageLimits(const NamedOwner &owner, const WantedLimits &wanted, Record &sheet)
{
    sheet.draft.mode = wanted.mode.value_or(sheet.base.mode);
    if (const auto misfit = Misfit(wanted, owner.owner, sheet.draft.mode)) {
        return StopWith(ExitStatus::Refused, *misfit);
    }
    Stage(wanted, sheet.limits);
    if (sheet.draft.mode == sheet.base.mode && sheet.limits.Staged() == sheet.limits.stored) {
        return IsSoAlready(TextOf(owner));
    }
    return {};
}

Or<void> SetLimits(Work &work, const Given &given)
{
    const auto wanted = WantedBy(given);
    if (!wanted) {
        return tl::unexpected(wanted.error());
    }
    return FindOwner(work, given).and_then([&](const NamedOwner &owner) {
        const auto stage = [&](auto &sheet) { return StageLimits(owner, *wanted, sheet); };
        return ChangeSheet(work, owner, stage).map([&](const Performed &performed) {
            work.Print(performed, u"The limits of %1 were changed."_s.arg(owner.name));
        });
    });
}

} // namespace

Commands LimitCommands()
{
    return {{"limit show",
             "USER|--group GROUP",
             "Shows the mode and limits of a user or a group, what is used of them and left.",
             0,
             1,
             {kOwnerGroup},
             ShowLimits},
            {"limit set",
             "USER|--group GROUP",
             "Changes the mode and limits of a user or a group, as their property sheets do.",
             0,
             1,
             {kOwnerGroup,
              {"mode", "MODE", "none, traffic, time, both or provider."},
              {"traffic", "AMOUNT", "The traffic limit of a period, as 500MB or 2GB."},
              {"time", "AMOUNT", "The time limit of a period, as 20h."},
              {"period", "PERIOD", "The accounting period: day or month."},
              {"price", "PRICE", "An own price for each megabyte, in mode provider."},
              {"global-price", nullptr, "The price that the settings name, in mode provider."}},
             SetLimits,
             true}};
}
