#include "admin/currency_settings.h"

#include "base/amount_text.h"
#include "base/text.h"
#include "config/config_store.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kBaseSymbol = u"UN";
constexpr qsizetype kShownTitle = 15;
constexpr qsizetype kShownSymbol = 5;
constexpr qsizetype kShownRate = 5;
constexpr qsizetype kUsedSymbol = 10;

QString StoredAmount(double amount)
{
    return QString::number(amount, 'f', QLocale::FloatingPointShortest);
}

} // namespace

QList<CurrencyRow> CurrencyRows(const CurrencySettings &settings)
{
    QList<CurrencyRow> rows {{u"units"_s, kBaseSymbol.toString(), u"1"_s}};
    if (settings.use != CurrencySettings::None) {
        rows.append({settings.name, settings.symbol, AmountText(settings.rate)});
    }
    return rows;
}

QString UsedSymbol(const CurrencySettings &settings)
{
    return settings.use == CurrencySettings::InUse ? settings.symbol.left(kUsedSymbol)
                                                   : kBaseSymbol.toString();
}

QString TextOf(CurrencyProblem problem)
{
    switch (problem) {
    case CurrencyProblem::SymbolMissing:
        return u"Enter the currency symbol please"_s;
    case CurrencyProblem::RateMissing:
        return u"Enter the currency rate please"_s;
    case CurrencyProblem::DeletesBase:
        return u"You can not delete base currency"_s;
    case CurrencyProblem::EditsBase:
        return u"You can not edit base currency"_s;
    case CurrencyProblem::NothingToDelete:
        return u"Select an item to delete"_s;
    case CurrencyProblem::NothingToEdit:
        return u"Select currency to edit"_s;
    case CurrencyProblem::NothingToSet:
        return u"Select currency to set"_s;
    }
    Q_UNREACHABLE();
}

CurrencyEntry EntryOf(const CurrencySettings &settings)
{
    return {settings.symbol.left(kShownSymbol),
            settings.name.left(kShownTitle),
            AmountText(settings.rate).left(kShownRate)};
}

std::optional<CurrencyProblem> CheckEntry(const CurrencyEntry &entry)
{
    if (entry.symbol.isEmpty()) {
        return CurrencyProblem::SymbolMissing;
    }
    if (AmountFrom(entry.rate) <= 0.0) {
        return CurrencyProblem::RateMissing;
    }
    return std::nullopt;
}

void AddCurrency(CurrencySettings &settings, const CurrencyEntry &entry)
{
    settings.use = CurrencySettings::Defined;
    settings.name = entry.title;
    settings.symbol = entry.symbol.toUpper();
    settings.rate = AmountFrom(entry.rate);
}

void ChangeCurrency(CurrencySettings &settings,
                    const CurrencyEntry &shown,
                    const CurrencyEntry &entry)
{
    if (entry.title != shown.title) {
        settings.name = entry.title;
    }
    if (entry.symbol != shown.symbol) {
        settings.symbol = entry.symbol.toUpper();
    }
    if (entry.rate != shown.rate) {
        settings.rate = AmountFrom(entry.rate);
    }
}

std::optional<CurrencyProblem> CheckDelete(std::optional<int> row)
{
    if (!row) {
        return CurrencyProblem::NothingToDelete;
    }
    return row == kBaseCurrencyRow ? std::optional(CurrencyProblem::DeletesBase) : std::nullopt;
}

std::optional<CurrencyProblem> CheckEdit(std::optional<int> row)
{
    if (!row) {
        return CurrencyProblem::NothingToEdit;
    }
    return row == kBaseCurrencyRow ? std::optional(CurrencyProblem::EditsBase) : std::nullopt;
}

void DeleteCurrency(CurrencySettings &settings)
{
    CurrencySettings none;
    none.trafficPrice = settings.trafficPrice;
    settings = none;
}

std::optional<CurrencyProblem> SetCurrency(CurrencySettings &settings, std::optional<int> row)
{
    if (!row) {
        return CurrencyProblem::NothingToSet;
    }
    if (row != kBaseCurrencyRow) {
        settings.use = CurrencySettings::InUse;
    } else if (settings.use == CurrencySettings::InUse) {
        settings.use = CurrencySettings::Defined;
    }
    return std::nullopt;
}

CurrencySettings LoadCurrency(const ConfigStore &store, qsizetype bufferBytes)
{
    CurrencySettings settings;
    settings.trafficPrice = store.ReadAmount(values::kTrafPrice, bufferBytes);
    const qint32 use = store.ReadInteger(values::kCurUse, bufferBytes);
    if (use != CurrencySettings::Defined && use != CurrencySettings::InUse) {
        return settings;
    }
    settings.use = use;
    settings.name = store.ReadText(values::kCurrencyName, bufferBytes).value_or(QString());
    settings.symbol = store.ReadText(values::kCurrencySymbol, bufferBytes).value_or(QString());
    settings.rate = store.ReadAmount(values::kCurrencyRate, bufferBytes);
    return settings;
}

void SaveCurrency(const ConfigStore &store, const CurrencySettings &settings)
{
    store.WriteText(values::kTrafPrice, StoredAmount(settings.trafficPrice));
    store.Edit(ConfigKeyId::Base, [&settings](KeyEditor &key) {
        key.WriteInteger(values::kCurUse, settings.use);
        key.WriteText(values::kCurrencyName, settings.name);
        key.WriteText(values::kCurrencySymbol, settings.symbol);
        key.WriteText(values::kCurrencyRate, StoredAmount(settings.rate));
    });
}
