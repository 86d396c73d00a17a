#include "exchange/cell_values.h"

#include "base/amount_text.h"
#include "exchange/import_column.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

template <typename Value>
using Spelled = std::pair<QStringView, Value>;

// The first spelling of a value is the one that is written.
constexpr std::array kModes {
    Spelled<AccountingMode> {u"No control", AccountingMode::NoControl},
    Spelled<AccountingMode> {u"Traffic", AccountingMode::Traffic},
    Spelled<AccountingMode> {u"Time", AccountingMode::Time},
    Spelled<AccountingMode> {u"Traffic and time", AccountingMode::TrafficAndTime},
    Spelled<AccountingMode> {u"Provider", AccountingMode::Provider},
    Spelled<AccountingMode> {u"Corporate, traffic control", AccountingMode::Traffic},
    Spelled<AccountingMode> {u"Corporate, time control", AccountingMode::Time},
    Spelled<AccountingMode> {u"Corporate, traffic and time control",
                             AccountingMode::TrafficAndTime},
    Spelled<AccountingMode> {u"Keine Kontrolle", AccountingMode::NoControl},
    Spelled<AccountingMode> {u"Datenverkehr", AccountingMode::Traffic},
    Spelled<AccountingMode> {u"Zeit", AccountingMode::Time},
    Spelled<AccountingMode> {u"Datenverkehr und Zeit", AccountingMode::TrafficAndTime},
    Spelled<AccountingMode> {u"Firma, Kontrolle des Datenverkehrs", AccountingMode::Traffic},
    Spelled<AccountingMode> {u"Firma, Kontrolle der Zeit", AccountingMode::Time},
    Spelled<AccountingMode> {u"Firma, Kontrolle von Datenverkehr und Zeit",
                             AccountingMode::TrafficAndTime},
};

constexpr std::array kPeriods {
    Spelled<LimitPeriod> {u"Day", LimitPeriod::Day},
    Spelled<LimitPeriod> {u"Month", LimitPeriod::Month},
    Spelled<LimitPeriod> {u"Tag", LimitPeriod::Day},
    Spelled<LimitPeriod> {u"Monat", LimitPeriod::Month},
};

constexpr std::array kFlags {
    Spelled<bool> {u"yes", true},
    Spelled<bool> {u"no", false},
    Spelled<bool> {u"ja", true},
    Spelled<bool> {u"nein", false},
    Spelled<bool> {u"true", true},
    Spelled<bool> {u"false", false},
    Spelled<bool> {u"1", true},
    Spelled<bool> {u"0", false},
};

template <typename Words>
auto ValueOf(const Words &words, const QString &word) -> std::optional<decltype(words[0].second)>
{
    const QString key = WordKey(word);
    for (const auto &[spelling, value] : words) {
        if (WordKey(spelling.toString()) == key) {
            return value;
        }
    }
    return std::nullopt;
}

template <typename Words, typename Value>
QString WordOf(const Words &words, Value wanted)
{
    for (const auto &[spelling, value] : words) {
        if (value == wanted) {
            return spelling.toString();
        }
    }
    return {};
}

} // namespace

QString ModeWord(AccountingMode mode)
{
    return WordOf(kModes, mode);
}

QString PeriodWord(LimitPeriod period)
{
    return WordOf(kPeriods, period);
}

QString FlagWord(bool on)
{
    return WordOf(kFlags, on);
}

QString GlobalPriceWord()
{
    return u"global"_s;
}

QString UnlimitedWord()
{
    return u"unlimited"_s;
}

QString FigureOf(double number)
{
    return DecimalText(number, QLocale::FloatingPointShortest, QLocale::c());
}

std::optional<AccountingMode> ModeIn(const QString &word)
{
    return ValueOf(kModes, word);
}

std::optional<LimitPeriod> PeriodOf(const QString &word)
{
    return ValueOf(kPeriods, word);
}

std::optional<bool> FlagIn(const QString &word)
{
    return ValueOf(kFlags, word);
}

bool IsGlobalPrice(const QString &word)
{
    const QString key = WordKey(word);
    return key == GlobalPriceWord() || key == u"allgemein"_s;
}

bool IsUnlimited(const QString &word)
{
    const QString key = WordKey(word);
    return key == UnlimitedWord() || key == u"unbegrenzt"_s;
}

QLocale NumbersBeside(QChar separator)
{
    return separator == u',' ? QLocale::c() : QLocale(QLocale::German, QLocale::Germany);
}
