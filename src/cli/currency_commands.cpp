// The commands that begin with "currency": in what money is shown.
#include "admin/currency_settings.h"
#include "cli/command.h"
#include "cli/owners.h"
#include "cli/settings_work.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongest = qsizetype {1024} * 1024; // bytes, more than any value has

const QList<Column> kColumns {
    {"symbol", "Symbol"}, {"title", "Title"}, {"rate", "Rate", true}, {"inUse", "In use"}};

Or<CurrencySettings> ReadSettings(const Work &work)
{
    return ReadKeyToWrite(work, ConfigKeyId::Base).map([](const KeyReader &base) {
        CurrencySettings settings;
        ReadCurrency(settings, base, kLongest);
        return settings;
    });
}

bool IsInUse(const CurrencySettings &settings, int row)
{
    return (row == kBaseCurrencyRow) == (settings.use != CurrencySettings::InUse);
}

Or<void> ListCurrencies(Work &work, const Given & /*given*/)
{
    return ReadSettings(work).map([&work](const CurrencySettings &settings) {
        Table table {kColumns, {}};
        const QList<CurrencyRow> rows = CurrencyRows(settings);
        for (int row = 0; row < rows.size(); ++row) {
            const double rate = row == kBaseCurrencyRow ? 1.0 : settings.rate;
            table.rows << Cells {
                rows[row].symbol, rows[row].name, {rate, rows[row].rate}, IsInUse(settings, row)};
        }
        work.Print(table);
    });
}

// The row of the symbol, in any letter case.
Or<int> RowOf(const CurrencySettings &settings, const QString &symbol)
{
    const QList<CurrencyRow> rows = CurrencyRows(settings);
    for (int row = 0; row < rows.size(); ++row) {
        if (rows[row].symbol.compare(symbol, Qt::CaseInsensitive) == 0) {
            return row;
        }
    }
    return StopWith(ExitStatus::Refused,
                    u"There is no currency \"%1\"; \"tollbrook currency list\" names them. "
                    "Nothing was changed."_s.arg(symbol));
}

QStringList ValuesOf(const CurrencySettings &settings)
{
    if (settings.use == CurrencySettings::None) {
        return {};
    }
    return {u"symbol="_s + settings.symbol,
            u"title="_s + settings.name,
            u"rate="_s + QString::number(settings.rate, 'f', QLocale::FloatingPointShortest),
            u"inUse=%1"_s.arg(int {settings.use == CurrencySettings::InUse})};
}

Or<void> Save(Work &work, const CurrencySettings &base, const CurrencySettings &draft)
{
    if (draft == base) {
        return IsSoAlready(u"The currency"_s);
    }
    const auto written = WriteSettings(work, [&](const ConfigStore &settings) {
        return SaveCurrency(settings, {base, draft});
    });
    return written.map([&] {
        PrintSettings(work, ConfigKeyId::Base, u"currency"_s, ValuesOf(base), ValuesOf(draft));
    });
}

// `entry` with what was given in its place.
CurrencyEntry Entered(const Given &given, CurrencyEntry entry)
{
    entry.symbol = given.Value(u"symbol"_s).value_or(entry.symbol).trimmed();
    entry.title = given.Value(u"title"_s).value_or(entry.title);
    entry.rate = given.Value(u"rate"_s).value_or(entry.rate);
    return entry;
}

Or<void> AddOne(Work &work, const Given &given)
{
    const auto base = ReadSettings(work);
    if (!base) {
        return tl::unexpected(base.error());
    }
    if (base->use != CurrencySettings::None) {
        return StopWith(ExitStatus::Refused,
                        u"There is a currency already, \"%1\"; only one can be defined beside the "
                        "base unit. Nothing was changed."_s.arg(base->symbol));
    }
    CurrencyEntry entry = Entered(given, {});
    entry.symbol = given.Word(0).trimmed();
    if (const auto problem = CheckEntry(entry)) {
        return StopWith(ExitStatus::Refused, TextOf(*problem));
    }
    CurrencySettings draft = *base;
    AddCurrency(draft, entry);
    return Save(work, *base, draft);
}

// `change` makes of the settings, at the row of the symbol that is named, what they are to become.
template <typename Change>
Or<void> ChangeAt(Work &work, const Given &given, const Change &change)
{
    const auto base = ReadSettings(work);
    const auto row = base ? RowOf(*base, given.Word(0)) : Or<int>(tl::unexpected(base.error()));
    if (!row) {
        return tl::unexpected(row.error());
    }
    CurrencySettings draft = *base;
    if (const std::optional<CurrencyProblem> problem = change(draft, *row)) {
        return StopWith(ExitStatus::Refused, TextOf(*problem));
    }
    return Save(work, *base, draft);
}

Or<void> SetOne(Work &work, const Given &given)
{
    return ChangeAt(work, given, [&](CurrencySettings &draft, int row) {
        if (const auto problem = CheckEdit(row)) {
            return std::optional(*problem);
        }
        const CurrencyEntry shown = EntryOf(draft);
        const CurrencyEntry entry = Entered(given, shown);
        const auto problem = CheckEntry(entry);
        if (!problem) {
            ChangeCurrency(draft, shown, entry);
        }
        return problem;
    });
}

Or<void> UseOne(Work &work, const Given &given)
{
    return ChangeAt(
        work, given, [](CurrencySettings &draft, int row) { return SetCurrency(draft, row); });
}

Or<void> RemoveOne(Work &work, const Given &given)
{
    return ChangeAt(work, given, [](CurrencySettings &draft, int row) {
        const auto problem = CheckDelete(row);
        if (!problem) {
            DeleteCurrency(draft);
        }
        return problem;
    });
}

} // namespace

Commands CurrencyCommands()
{
    const CommandOption title {"title", "TEXT", "Its name."};
    const CommandOption rate {"rate", "RATE", "How much of it is one base unit, as 1.25."};
    return {
        {"currency list", "", "Lists the base unit and the currency.", 0, 0, {}, ListCurrencies},
        {"currency add",
         "SYMBOL",
         "Defines a currency, as USD, and does not use it yet.",
         1,
         1,
         {title, rate},
         AddOne},
        {"currency set",
         "SYMBOL",
         "Changes the currency.",
         1,
         1,
         {{"symbol", "SYMBOL", "Another symbol."}, title, rate},
         SetOne,
         true},
        {"currency use",
         "SYMBOL",
         "Has money shown in the currency, or with UN in base units.",
         1,
         1,
         {},
         UseOne},
        {"currency remove", "SYMBOL", "Removes the currency.", 1, 1, {}, RemoveOne}};
}
