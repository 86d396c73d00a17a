#include "base/number_entry.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What a person who types `typed` in that locale means; a fault for what is refused.
struct Case
{
    QString typed;
    tl::expected<double, NumberFault> means;
};

constexpr NumberBounds kAmount {.least = 0.0, .most = 1e9, .decimals = 2};

const tl::unexpected<NumberFault> kUnreadable(NumberFault::Unreadable);
const tl::unexpected<NumberFault> kAmbiguous(NumberFault::Ambiguous);
const tl::unexpected<NumberFault> kPrecise(NumberFault::TooPrecise);
const tl::unexpected<NumberFault> kOutside(NumberFault::OutOfRange);
const tl::unexpected<NumberFault> kBlank(NumberFault::Blank);

void Expect(const char *locale,
            const std::vector<Case> &cases,
            const NumberBounds &bounds = kAmount)
{
    for (const Case &each : cases) {
        const auto read = NumberFrom(each.typed, bounds, QLocale(QString::fromLatin1(locale)));
        EXPECT_EQ(read, each.means) << locale << ": " << qPrintable(each.typed);
    }
}

} // namespace

TEST(NumberEntry, MeansTheSameEverywhere)
{
    for (const char *locale : {"C", "en_US", "de_DE", "fr_FR", "de_CH", "pl_PL"}) {
        Expect(locale,
               {{u"0"_s, 0.0},
                {u"25"_s, 25.0},
                {u"2.5"_s, 2.5},
                {u"12.34"_s, 12.34},
                {u" 7 "_s, 7.0},
                {u".5"_s, 0.5},
                {u"5."_s, 5.0},
                {u"007"_s, 7.0},
                {u"1000000000"_s, 1e9},
                {u"1000000000.01"_s, kOutside},
                {QString(400, u'9'), kOutside},
                {u""_s, kBlank},
                {u"  "_s, kBlank},
                {u"."_s, kUnreadable},
                {u"-5"_s, kUnreadable},
                {u"+5"_s, kUnreadable},
                {u"1e3"_s, kUnreadable},
                {u"0x10"_s, kUnreadable},
                {u"1.2.3"_s, kUnreadable},
                {u"12 Mb"_s, kUnreadable},
                {u"inf"_s, kUnreadable},
                {u"nan"_s, kUnreadable}});
    }
}

TEST(NumberEntry, PointAndCommaInEnglish)
{
    for (const char *locale : {"C", "en_US", "en_GB"}) {
        Expect(locale,
               {{u"1,234"_s, 1234.0}, // a comma is no decimal mark here
                {u"1,234.56"_s, 1234.56},
                {u"1,234,567"_s, 1234567.0},
                {u"12.345"_s, kPrecise},
                {u"2,5"_s, kUnreadable},
                {u"1,23"_s, kUnreadable},
                {u"12,34,567"_s, kUnreadable},
                {u"1234,567"_s, kUnreadable},
                {u"1,234,56"_s, kUnreadable},
                {u",234"_s, kUnreadable},
                {u"0,234"_s, kUnreadable},
                {u"1.234,56"_s, kUnreadable},
                {u"1.234,567"_s, kUnreadable},
                {u"1 234"_s, kUnreadable},
                {u"1'234"_s, kUnreadable}});
    }
}

TEST(NumberEntry, PointAndCommaInGerman)
{
    for (const char *locale : {"de_DE", "it_IT", "nl_NL"}) {
        Expect(locale,
               {{u"2,5"_s, 2.5},
                {u"1.234,56"_s, 1234.56},
                {u"1.234.567"_s, 1234567.0},
                {u"1.234.567,8"_s, 1234567.8},
                {u"1.234"_s, kAmbiguous}, // a thousand or one and a bit
                {u"999.999"_s, kAmbiguous},
                {u"1234.5"_s, 1234.5},
                {u"1,234"_s, kPrecise},
                {u"1,234.56"_s, kUnreadable},
                {u"1.23.456"_s, kUnreadable},
                {u"1.2345,6"_s, kUnreadable},
                {u"1,2,3"_s, kUnreadable},
                {u"1 234"_s, kUnreadable}});
    }
    constexpr NumberBounds exact {.least = 0.0, .most = 1e9, .decimals = 6};
    Expect("de_DE",
           {{u"0.123"_s, 0.123}, // no thousands begin with a nought
            {u"1.234"_s, kAmbiguous},
            {u"1234.567"_s, 1234.567},
            {u"1,234"_s, 1.234},
            {u"1.2345"_s, 1.2345}},
           exact);
}

// The mark that ends a number is the decimal one, or no number ends there.
TEST(NumberEntry, AMarkAtTheEnd)
{
    struct AtEnd
    {
        const char *locale;
        tl::expected<double, NumberFault> comma; // "5,"
        tl::expected<double, NumberFault> groupedComma; // "1.234,"
        tl::expected<double, NumberFault> groupedPoint; // "1,234."
        tl::expected<double, NumberFault> apostrophe; // "5'"
    };
    const AtEnd locales[] = {
        {"C", kUnreadable, kUnreadable, 1234.0, kUnreadable},
        {"en_US", kUnreadable, kUnreadable, 1234.0, kUnreadable},
        {"en_GB", kUnreadable, kUnreadable, 1234.0, kUnreadable},
        {"de_DE", 5.0, 1234.0, kUnreadable, kUnreadable},
        {"it_IT", 5.0, 1234.0, kUnreadable, kUnreadable},
        {"fr_FR", 5.0, kUnreadable, kUnreadable, kUnreadable},
        {"pl_PL", 5.0, kUnreadable, kUnreadable, kUnreadable},
        {"de_CH", kUnreadable, kUnreadable, kUnreadable, kUnreadable},
    };
    for (const auto &[locale, comma, groupedComma, groupedPoint, apostrophe] : locales) {
        for (const NumberBounds &bounds : {kAmount, NumberBounds {}}) {
            Expect(locale,
                   {{u"5."_s, 5.0},
                    {u"1234."_s, 1234.0},
                    {u"5.."_s, kUnreadable},
                    {u"5,,"_s, kUnreadable},
                    {u"5.,"_s, kUnreadable},
                    {u"5,."_s, kUnreadable},
                    {u"1.234."_s, kUnreadable},
                    {u"1,234,"_s, kUnreadable},
                    {u"5,"_s, comma},
                    {u"1.234,"_s, groupedComma},
                    {u"1,234."_s, groupedPoint},
                    {u"5'"_s, apostrophe}},
                   bounds);
        }
    }
}

TEST(NumberEntry, BlanksInFrench)
{
    Expect("fr_FR",
           {{u"2,5"_s, 2.5},
            {u"1\u202f234,56"_s, 1234.56}, // as it is written
            {u"1\u00a0234,56"_s, 1234.56}, // as it was written
            {u"1 234,56"_s, 1234.56}, // as it is typed
            {u"1 234 567"_s, 1234567.0},
            {u"1 234.56"_s, 1234.56},
            {u"12 34"_s, kUnreadable},
            {u"1  234"_s, kUnreadable},
            {u"1.234,56"_s, kUnreadable},
            {u"1.234"_s, kPrecise}});
}

TEST(NumberEntry, ApostrophesInSwitzerland)
{
    Expect("de_CH",
           {{u"1\u2019234.56"_s, 1234.56},
            {u"1'234.56"_s, 1234.56},
            {u"1'234'567"_s, 1234567.0},
            {u"12'34"_s, kUnreadable},
            {u"2,5"_s, kUnreadable},
            {u"1.234,56"_s, kUnreadable}});
}

TEST(NumberEntry, WholeNumbersWithinBounds)
{
    constexpr NumberBounds days {.least = 1, .most = 30};
    for (const char *locale : {"C", "de_DE"}) {
        Expect(locale,
               {{u"1"_s, 1.0},
                {u"30"_s, 30.0},
                {u"0"_s, kOutside},
                {u"31"_s, kOutside},
                {u"2.5"_s, kUnreadable},
                {u"2.0"_s, kUnreadable}},
               days);
        Expect(locale, {{u"2147483647"_s, 2147483647.0}, {u"2147483648"_s, kOutside}}, {});
    }
    Expect("C", {{u"1,000"_s, 1000.0}}, {});
    Expect("de_DE", {{u"1.000"_s, kAmbiguous}, {u"1.000.000"_s, 1000000.0}}, {});
}
