#include "base/moment_entry.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// What a person who types the text in that locale means; nothing for what is refused.
using Days = std::vector<std::pair<QString, std::optional<QDate>>>;
using Times = std::vector<std::pair<QString, std::optional<QTime>>>;

void ExpectDays(const char *locale, const Days &cases)
{
    for (const auto &[typed, means] : cases) {
        EXPECT_EQ(DayFrom(typed, QLocale(QString::fromLatin1(locale))), means)
            << locale << ": " << qPrintable(typed);
    }
}

void ExpectTimes(const char *locale, const Times &cases)
{
    for (const auto &[typed, means] : cases) {
        EXPECT_EQ(TimeFrom(typed, QLocale(QString::fromLatin1(locale))), means)
            << locale << ": " << qPrintable(typed);
    }
}

} // namespace

TEST(MomentEntry, DaysThatMeanTheSameEverywhere)
{
    for (const char *locale : {"C", "en_US", "en_GB", "de_DE", "fr_FR"}) {
        ExpectDays(locale,
                   {{u"2025-03-31"_s, QDate(2025, 3, 31)},
                    {u"2027-01-05"_s, QDate(2027, 1, 5)},
                    {u"2027-1-5"_s, QDate(2027, 1, 5)},
                    {u"2024-02-29"_s, QDate(2024, 2, 29)},
                    {u" 2021-04-30 "_s, QDate(2021, 4, 30)},
                    {u"2021.04.30"_s, QDate(2021, 4, 30)},
                    {u"2021/04/30"_s, QDate(2021, 4, 30)},
                    {u"31.12.2025"_s, QDate(2025, 12, 31)},
                    {u"31. 12. 2025"_s, QDate(2025, 12, 31)},
                    {u"1.2.26"_s, QDate(2026, 2, 1)},
                    {u""_s, {}},
                    {u"  "_s, {}},
                    {u"2025-02-29"_s, {}},
                    {u"2025-13-01"_s, {}},
                    {u"31.4.2025"_s, {}},
                    {u"2025-03"_s, {}},
                    {u"2025-03-31-1"_s, {}},
                    {u"2025-03.31"_s, {}},
                    {u"2025-03-311"_s, {}},
                    {u"0025-03-31"_s, {}},
                    {u"12025-03-31"_s, {}},
                    {u"20250331"_s, {}},
                    {u"25-03-31x"_s, {}},
                    {u"today"_s, {}}});
    }
}

TEST(MomentEntry, DaysInTheOrderOfTheLocale)
{
    ExpectDays("en_US",
               {{u"12/31/2025"_s, QDate(2025, 12, 31)},
                {u"3/4/25"_s, QDate(2025, 3, 4)},
                {u"31/12/2025"_s, {}},
                {u"3-4-2025"_s, {}}});
    ExpectDays("en_GB",
               {{u"31/12/2025"_s, QDate(2025, 12, 31)},
                {u"3/4/2025"_s, QDate(2025, 4, 3)},
                {u"12/31/2025"_s, {}}});
    ExpectDays("de_DE", {{u"03.04.25"_s, QDate(2025, 4, 3)}, {u"3/4/2025"_s, {}}});
    ExpectDays("nl_NL", {{u"31-12-2025"_s, QDate(2025, 12, 31)}, {u"3/4/2025"_s, {}}});
    ExpectDays("C", {{u"31 Dec 2025"_s, QDate(2025, 12, 31)}, {u"3/4/2025"_s, {}}});
}

TEST(MomentEntry, TimesOfDay)
{
    for (const char *locale : {"C", "en_US", "de_DE"}) {
        ExpectTimes(locale,
                    {{u"17:45"_s, QTime(17, 45)},
                     {u"17.45"_s, QTime(17, 45)},
                     {u"9:05"_s, QTime(9, 5)},
                     {u"09:05:59"_s, QTime(9, 5, 59)},
                     {u"9.05.59"_s, QTime(9, 5, 59)},
                     {u" 00:00 "_s, QTime(0, 0)},
                     {u"23:59:59"_s, QTime(23, 59, 59)},
                     {u""_s, {}},
                     {u"24:00"_s, {}},
                     {u"17:60"_s, {}},
                     {u"17:5"_s, {}},
                     {u"17"_s, {}},
                     {u"1745"_s, {}},
                     {u"17:45.30"_s, {}},
                     {u"17:45:30:1"_s, {}},
                     {u"117:45"_s, {}},
                     {u"17-45"_s, {}},
                     {u"noon"_s, {}}});
    }
    ExpectTimes("en_US", {{u"5:45 PM"_s, QTime(17, 45)}, {u"13:45 PM"_s, {}}});
}
