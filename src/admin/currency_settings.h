// The traffic price and the one further currency that an operator may define beside the base unit.
#pragma once

#include "admin/edited_settings.h"
#include "base/amount_text.h"
#include "base/number_entry.h"

#include <QList>
#include <QString>

#include <optional>

struct CurrencySettings
{
    enum Use { None = 0, Defined = 1, InUse = 2 }; // "curuse"

    int use = None;
    QString name; // "currencyname"
    QString symbol; // "currencysymbol", upper case
    double rate = 1.0; // "currencyrate": currency per base unit
    double trafficPrice = 0.0; // "trafprice" under Price: base units per megabyte

    bool operator==(const CurrencySettings &) const = default;
};

// A row of the currency list. Row 0 is the base unit: "units", "UN", "1"; row 1 the defined one.
struct CurrencyRow
{
    QString name;
    QString symbol;
    QString rate; // with two decimals
};

constexpr int kBaseCurrencyRow = 0;

[[nodiscard]] QList<CurrencyRow> CurrencyRows(const CurrencySettings &settings);

// The symbol in use, at most 10 characters.
[[nodiscard]] QString UsedSymbol(const CurrencySettings &settings);

enum class CurrencyProblem {
    SymbolMissing,
    RateMissing,
    RateWrong,
    DeletesBase,
    EditsBase,
    NothingToDelete,
    NothingToEdit,
    NothingToSet
};

// What a person is told about it.
[[nodiscard]] QString TextOf(CurrencyProblem problem);

// What is taken as a rate; it must be above 0 besides.
inline constexpr NumberBounds kRateBounds {.least = 0.0, .most = 1e9, .decimals = 6};

// What the "Add currency" dialog holds, as it was typed.
struct CurrencyEntry
{
    QString symbol;
    QString title;
    QString rate = AmountText(1.0);
};

// The entry that the dialog opens with for the defined currency; its parts are cut as they were
// shown: 15 characters of the title, 5 of the symbol and of the rate.
[[nodiscard]] CurrencyEntry EntryOf(const CurrencySettings &settings);

[[nodiscard]] std::optional<CurrencyProblem> CheckEntry(const CurrencyEntry &entry);

// The currency becomes defined, and is not in use.
void AddCurrency(CurrencySettings &settings, const CurrencyEntry &entry);

// Takes what differs from `shown`, the entry that the dialog opened with: a part that was cut to be
// shown and was not touched stays whole.
void ChangeCurrency(CurrencySettings &settings,
                    const CurrencyEntry &shown,
                    const CurrencyEntry &entry);

// `row` is nothing while none is selected.
[[nodiscard]] std::optional<CurrencyProblem> CheckDelete(std::optional<int> row);
[[nodiscard]] std::optional<CurrencyProblem> CheckEdit(std::optional<int> row);
void DeleteCurrency(CurrencySettings &settings);
[[nodiscard]] std::optional<CurrencyProblem> SetCurrency(CurrencySettings &settings,
                                                         std::optional<int> row);

// The currency of the base key and the price of its own; both readers' buffers hold `bufferBytes`.
void ReadCurrency(CurrencySettings &settings, const KeyReader &base, qsizetype bufferBytes);
void ReadPrice(CurrencySettings &settings, const KeyReader &price, qsizetype bufferBytes);

// The price, and the currency: its four values are one, since they mean nothing apart.
[[nodiscard]] SettingsResult SavePrice(const ConfigStore &store,
                                       const Edited<CurrencySettings> &edited);
[[nodiscard]] SettingsResult SaveCurrency(const ConfigStore &store,
                                          const Edited<CurrencySettings> &edited);
