#include "admin/currency_settings.h"

#include "base/amount_text.h"
#include "base/text.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(CurrencySettings)
};

constexpr QStringView kBaseSymbol = u"UN";
constexpr qsizetype kShownTitle = 15;
constexpr qsizetype kShownSymbol = 5;
constexpr qsizetype kShownRate = 5;
constexpr qsizetype kUsedSymbol = 10;

QString StoredAmount(double amount)
{
    return QString::number(amount, 'f', QLocale::FloatingPointShortest);
}

bool IsSameCurrency(CurrencySettings one, const CurrencySettings &other)
{
    one.trafficPrice = other.trafficPrice;
    return one == other;
}

} // namespace

QList<CurrencyRow> CurrencyRows(const CurrencySettings &settings)
{
    QList<CurrencyRow> rows {{Words::tr("units"), kBaseSymbol.toString(), u"1"_s}};
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
        return Words::tr("Enter the currency symbol please");
    case CurrencyProblem::RateMissing:
        return Words::tr("Enter the currency rate please");
    case CurrencyProblem::RateWrong:
        return Words::tr(
                   "Enter the currency rate as a number above 0 with at most %1 decimals please")
            .arg(kRateBounds.decimals);
    case CurrencyProblem::DeletesBase:
        return Words::tr("You can not delete base currency");
    case CurrencyProblem::EditsBase:
        return Words::tr("You can not edit base currency");
    case CurrencyProblem::NothingToDelete:
        return Words::tr("Select an item to delete");
    case CurrencyProblem::NothingToEdit:
        return Words::tr("Select currency to edit");
    case CurrencyProblem::NothingToSet:
        return Words::tr("Select currency to set");
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
    const auto rate = NumberFrom(entry.rate, kRateBounds);
    if (!rate) {
        const bool isBlank = rate.error() == NumberFault::Blank;
        return isBlank ? CurrencyProblem::RateMissing : CurrencyProblem::RateWrong;
    }
    return *rate > 0.0 ? std::nullopt : std::optional(CurrencyProblem::RateMissing);
}

void AddCurrency(CurrencySettings &settings, const CurrencyEntry &entry)
{
    settings.use = CurrencySettings::Defined;
    settings.name = entry.title;
    settings.symbol = entry.symbol.toUpper();
    settings.rate = NumberFrom(entry.rate, kRateBounds).value_or(settings.rate);
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
        settings.rate = NumberFrom(entry.rate, kRateBounds).value_or(settings.rate);
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

void ReadCurrency(CurrencySettings &settings, const KeyReader &base, qsizetype bufferBytes)
{
    const qint32 use = base.ReadInteger(values::kCurUse, bufferBytes);
    if (use != CurrencySettings::Defined && use != CurrencySettings::InUse) {
        return;
    }
    settings.use = use;
    settings.name = base.ReadText(values::kCurrencyName, bufferBytes).value_or(QString());
    settings.symbol = base.ReadText(values::kCurrencySymbol, bufferBytes).value_or(QString());
    settings.rate = base.ReadAmount(values::kCurrencyRate, bufferBytes);
}

void ReadPrice(CurrencySettings &settings, const KeyReader &price, qsizetype bufferBytes)
{
    settings.trafficPrice = price.ReadAmount(values::kTrafPrice, bufferBytes);
}

SettingsResult SavePrice(const ConfigStore &store, const Edited<CurrencySettings> &edited)
{
    return store.Edit(ConfigKeyId::Price, [&edited](KeyEditor &key) {
        WriteText(key,
                  values::kTrafPrice,
                  StoredAmount(edited.base.trafficPrice),
                  StoredAmount(edited.draft.trafficPrice));
    });
}

SettingsResult SaveCurrency(const ConfigStore &store, const Edited<CurrencySettings> &edited)
{
    const auto &draft = edited.draft;
    const bool touched = !IsSameCurrency(edited.base, draft);
    return store.Edit(ConfigKeyId::Base, [&draft, touched](KeyEditor &key) {
        const auto write = [&key, touched](const TextValue &value, const QString &text) {
            if (touched || !key.Has(value)) {
                key.WriteText(value, text);
            }
        };
        write(values::kCurUse, QString::number(draft.use));
        write(values::kCurrencyName, draft.name);
        write(values::kCurrencySymbol, draft.symbol);
        write(values::kCurrencyRate, StoredAmount(draft.rate));
    });
}
