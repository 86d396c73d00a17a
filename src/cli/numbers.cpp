#include "cli/numbers.h"

#include "base/text.h"

#include <QLocale>
#include <QRegularExpression>

#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct Unit
{
    QStringView name; // in lower case
    double times;
    double dividedBy = 1;
};

constexpr std::array kTrafficUnits {
    Unit {u"", 1}, Unit {u"mb", 1}, Unit {u"gb", 1024}, Unit {u"tb", 1024.0 * 1024}};
constexpr std::array kTimeUnits {
    Unit {u"", 1}, Unit {u"h", 1}, Unit {u"min", 1, 60}, Unit {u"d", 24}};
constexpr std::array kNoUnits {Unit {u"", 1}};

template <typename Units>
Or<double> Read(const QString &text, const Units &units, const QString &examples)
{
    static const QRegularExpression form(u"^([0-9]+(?:\\.[0-9]+)?)\\s*([A-Za-z]*)$"_s);
    const auto match = form.match(text.trimmed());
    for (const Unit &unit : units) {
        if (match.hasMatch() && match.captured(2).toLower() == unit.name) {
            return QLocale::c().toDouble(match.captured(1)) * unit.times / unit.dividedBy;
        }
    }
    return StopWith(ExitStatus::WrongUse,
                    u"\"%1\" is no amount; write it as %2."_s.arg(text, examples));
}

const QString kTrafficExamples = u"500, 500MB or 1.5GB"_s;
const QString kTimeExamples = u"2, 2h or 90min"_s;

template <typename Whole>
Or<Whole> WholeOf(const Or<double> &amount, const QString &text, const QString &unit)
{
    if (!amount) {
        return tl::unexpected(amount.error());
    }
    constexpr double kMost = std::numeric_limits<qint32>::max();
    if (*amount != std::floor(*amount) || *amount > kMost) {
        return StopWith(
            ExitStatus::WrongUse,
            u"A limit is a whole number of %1 up to 2147483647, which \"%2\" is not."_s.arg(unit,
                                                                                            text));
    }
    return Whole {static_cast<quint32>(*amount)};
}

template <typename Value>
struct Spelled
{
    QStringView word;
    Value value;
};

constexpr std::array kModes {Spelled<AccountingMode> {u"none", AccountingMode::NoControl},
                             Spelled<AccountingMode> {u"traffic", AccountingMode::Traffic},
                             Spelled<AccountingMode> {u"time", AccountingMode::Time},
                             Spelled<AccountingMode> {u"both", AccountingMode::TrafficAndTime},
                             Spelled<AccountingMode> {u"provider", AccountingMode::Provider}};
constexpr std::array kPeriods {Spelled<LimitPeriod> {u"day", LimitPeriod::Day},
                               Spelled<LimitPeriod> {u"month", LimitPeriod::Month}};
constexpr std::array kWeekdays {Spelled<quint32> {u"monday", 1},
                                Spelled<quint32> {u"tuesday", 2},
                                Spelled<quint32> {u"wednesday", 3},
                                Spelled<quint32> {u"thursday", 4},
                                Spelled<quint32> {u"friday", 5},
                                Spelled<quint32> {u"saturday", 6},
                                Spelled<quint32> {u"sunday", 7}};
constexpr std::array kAccess {Spelled<bool> {u"allow", true}, Spelled<bool> {u"deny", false}};
constexpr std::array kFlags {Spelled<bool> {u"yes", true}, Spelled<bool> {u"no", false}};

template <typename Words>
auto ValueOf(const Words &words, const QString &word) -> Or<decltype(words[0].value)>
{
    QStringList known;
    for (const auto &each : words) {
        if (word.compare(each.word, Qt::CaseInsensitive) == 0) {
            return each.value;
        }
        known << each.word.toString();
    }
    return StopWith(ExitStatus::WrongUse,
                    u"\"%1\" is none of: %2."_s.arg(word, known.join(u", "_s)));
}

// A code without a meaning is its number.
template <typename Words, typename Code>
QString WordIn(const Words &words, Code code)
{
    for (const auto &each : words) {
        if (each.value == code) {
            return each.word.toString();
        }
    }
    return QString::number(static_cast<quint32>(code));
}

} // namespace

Or<double> MegabytesFrom(const QString &text)
{
    return Read(text, kTrafficUnits, kTrafficExamples);
}

Or<double> HoursFrom(const QString &text)
{
    return Read(text, kTimeUnits, kTimeExamples);
}

Or<WholeMegabytes> TrafficLimitFrom(const QString &text)
{
    return WholeOf<WholeMegabytes>(MegabytesFrom(text), text, u"megabytes"_s);
}

Or<WholeHours> TimeLimitFrom(const QString &text)
{
    return WholeOf<WholeHours>(HoursFrom(text), text, u"hours"_s);
}

Or<double> AmountOf(const QString &text)
{
    return Read(text, kNoUnits, u"12 or 12.50"_s);
}

Or<QString> StorableText(const QString &text, const QString &what)
{
    switch (FaultIn(text)) {
    case TextFault::NotShowable:
        return StopWith(ExitStatus::WrongUse,
                        u"%1 has characters that cannot be shown."_s.arg(what));
    case TextFault::TooLong:
        return StopWith(ExitStatus::WrongUse,
                        u"%1 is too long: it has at most %2 bytes."_s.arg(what).arg(kMaxTextBytes));
    case TextFault::None:
        break;
    }
    return text;
}

Or<bool> FlagFrom(const QString &text)
{
    return ValueOf(kFlags, text);
}

Or<QDate> DateFrom(const QString &text)
{
    const QDate day = QDate::fromString(text, Qt::ISODate);
    if (!day.isValid()) {
        return StopWith(ExitStatus::WrongUse,
                        u"\"%1\" is no day; write it as 2026-12-31."_s.arg(text));
    }
    return day;
}

Or<QTime> TimeOfDayFrom(const QString &text)
{
    for (const QString &format : {u"H:mm"_s, u"H:mm:ss"_s}) {
        if (const QTime time = QTime::fromString(text, format); time.isValid()) {
            return time;
        }
    }
    return StopWith(ExitStatus::WrongUse,
                    u"\"%1\" is no time of day; write it as 08:30."_s.arg(text));
}

Or<quint32> WeekdayFrom(const QString &word)
{
    return ValueOf(kWeekdays, word);
}

QString WeekdayWord(quint32 day)
{
    return WordIn(kWeekdays, day);
}

Or<bool> AccessFrom(const QString &word)
{
    return ValueOf(kAccess, word);
}

QString AccessWord(bool allows)
{
    return WordIn(kAccess, allows);
}

Or<AccountingMode> ModeFrom(const QString &word)
{
    return ValueOf(kModes, word);
}

QString WordOf(AccountingMode mode)
{
    return WordIn(kModes, mode);
}

Or<LimitPeriod> PeriodFrom(const QString &word)
{
    return ValueOf(kPeriods, word);
}

QString WordOf(LimitPeriod period)
{
    return WordIn(kPeriods, period);
}
