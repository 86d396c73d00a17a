// What is typed as an argument, and what a terminal is shown.
#include "cli/numbers.h"
#include "cli/plain_text.h"
#include "cli/table.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Arguments, AmountsHaveAPointAndAUnitOrNone)
{
    struct Case
    {
        QString text;
        std::optional<double> megabytes;
        std::optional<double> hours;
        std::optional<double> money;
    };
    const Case cases[] = {
        {u"500"_s, 500, 500, 500},
        {u"0"_s, 0, 0, 0},
        {u"1.5"_s, 1.5, 1.5, 1.5},
        {u"500MB"_s, 500, {}, {}},
        {u"1.5 gb"_s, 1536, {}, {}},
        {u"2TB"_s, 2097152, {}, {}},
        {u"2h"_s, {}, 2, {}},
        {u"90min"_s, {}, 1.5, {}},
        {u"3d"_s, {}, 72, {}},
        {u"1,5"_s, {}, {}, {}},
        {u"1.000.000"_s, {}, {}, {}},
        {u"-5"_s, {}, {}, {}},
        {u"1e3"_s, {}, {}, {}},
        {u".5"_s, {}, {}, {}},
        {u""_s, {}, {}, {}},
        {u"MB"_s, {}, {}, {}},
    };
    const auto valueOf = [](const Or<double> &read) {
        return read ? std::optional(*read) : std::nullopt;
    };
    for (const auto &[text, megabytes, hours, money] : cases) {
        EXPECT_EQ(valueOf(MegabytesFrom(text)), megabytes) << text.toStdString();
        EXPECT_EQ(valueOf(HoursFrom(text)), hours) << text.toStdString();
        EXPECT_EQ(valueOf(AmountOf(text)), money) << text.toStdString();
    }
    EXPECT_EQ(MegabytesFrom(u"much"_s).error().status, ExitStatus::WrongUse);
}

TEST(Arguments, LimitsAreWholeNumbers)
{
    EXPECT_EQ(TrafficLimitFrom(u"1.5GB"_s)->value, 1536U);
    EXPECT_EQ(TrafficLimitFrom(u"2147483647"_s)->value, 2147483647U);
    EXPECT_FALSE(TrafficLimitFrom(u"2147483648"_s));
    EXPECT_FALSE(TrafficLimitFrom(u"1.5"_s));
    EXPECT_EQ(TimeLimitFrom(u"180min"_s)->value, 3U);
    EXPECT_FALSE(TimeLimitFrom(u"90min"_s));
}

TEST(Arguments, WordsAreThoseOfTheFindBar)
{
    using enum AccountingMode;
    for (const AccountingMode mode : {NoControl, Traffic, Time, TrafficAndTime, Provider}) {
        EXPECT_EQ(*ModeFrom(WordOf(mode).toUpper()), mode);
    }
    EXPECT_EQ(WordOf(AccountingMode {9}), u"9"_s);
    EXPECT_TRUE(ModeFrom(u"all"_s).error().text.contains(u"none, traffic, time, both, provider"_s));
    EXPECT_EQ(*PeriodFrom(u"day"_s), LimitPeriod::Day);
    EXPECT_EQ(*FlagFrom(u"no"_s), false);
    EXPECT_FALSE(FlagFrom(u"1"_s));
    EXPECT_EQ(*DateFrom(u"2026-12-31"_s), QDate(2026, 12, 31));
    EXPECT_FALSE(DateFrom(u"31.12.2026"_s));
    EXPECT_FALSE(DateFrom(u"2026-02-30"_s));
}

TEST(Arguments, TimesOfTheWeekAreReadAsTheyAreShown)
{
    EXPECT_EQ(*TimeOfDayFrom(u"8:30"_s), QTime(8, 30));
    EXPECT_EQ(*TimeOfDayFrom(u"08:30:15"_s), QTime(8, 30, 15));
    for (const QString &text : {u"8"_s, u"24:00"_s, u"8.30"_s, u"08:60"_s, u"-1:00"_s, u""_s}) {
        EXPECT_FALSE(TimeOfDayFrom(text)) << text.toStdString();
    }
    for (quint32 day = 1; day <= 7; ++day) {
        EXPECT_EQ(*WeekdayFrom(WeekdayWord(day).toUpper()), day);
    }
    EXPECT_EQ(WeekdayWord(1), u"monday"_s);
    EXPECT_EQ(WeekdayWord(8), u"8"_s);
    EXPECT_FALSE(WeekdayFrom(u"mon"_s));
    EXPECT_EQ(*AccessFrom(u"Allow"_s), true);
    EXPECT_EQ(AccessWord(false), u"deny"_s);
    EXPECT_FALSE(AccessFrom(u"yes"_s));
}

TEST(PlainTexts, NothingInThemIsObeyedOrUnseen)
{
    EXPECT_EQ(PlainText(u"Zo\u00eb \u05d3 \u4e2d"_s), u"Zo\u00eb \u05d3 \u4e2d"_s);
    EXPECT_EQ(PlainText(u"a\tb\nc\u007f\u009b\u202e\u200b\u2028"_s),
              u"a\\u0009b\\u000ac\\u007f\\u009b\\u202e\\u200b\\u2028"_s);
    EXPECT_EQ(PlainText(u"a\nb\r"_s, true), u"a\nb\\u000d"_s);
    EXPECT_EQ(PlainText(QString::fromUcs4(U"\U000e0041")), u"\\udb40\\udc41"_s);
}

TEST(Tables, ColumnsStandBelowTheirHeadingsWhateverTheLetters)
{
    const Table table {{{"name", "Name"}, {"used", "Used", true}, {"on", "On"}},
                       {{u"\u4e2d\u6587"_s, 12.5, true}, {u"ab"_s, Cell(), false}}};
    EXPECT_EQ(TextOf(table),
              u"Name   Used  On\n"
              "\u4e2d\u6587  12.50  yes\n"
              "ab           no\n"_s);
    const auto array = JsonOf(table);
    EXPECT_EQ(array[0].toObject(),
              (QJsonObject {{u"name"_s, u"\u4e2d\u6587"_s}, {u"used"_s, 12.5}, {u"on"_s, true}}));
    EXPECT_TRUE(array[1][u"used"].isNull());
}
