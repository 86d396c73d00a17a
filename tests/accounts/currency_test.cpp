#include "accounts/currency.h"

#include "accounts/credit_entry.h"
#include "accounts/currency_settings.h"
#include "base/amount_text.h"
#include "base/day.h"
#include "base/number_entry.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class CurrencyInUse : public testing::Test, protected CurrencySettings
{ };

TEST_F(CurrencyInUse, GivesRateAndUnit)
{
    struct Case
    {
        QString use;
        QString rate;
        double currentRate;
        QString unit;
    };
    const Case cases[] = {
        {u""_s, u"2.5"_s, 1.0, u"units"_s},
        {u"0"_s, u"2.5"_s, 1.0, u"units"_s},
        {u"1"_s, u"2.5"_s, 1.0, u"units"_s},
        {u"2"_s, u"2.5"_s, 2.5, u"Euro"_s},
        {u"2"_s, u"0.01"_s, 0.01, u"Euro"_s},
        {u"2"_s, u"rate"_s, 0.0, u"Euro"_s},
        {u"3"_s, u"2.5"_s, 1.0, u"units"_s},
    };
    for (const auto &[use, rate, currentRate, unit] : cases) {
        UseCurrency(rate);
        settings.WriteText(values::kCurUse, use);
        EXPECT_DOUBLE_EQ(CurrentRate(settings), currentRate) << qPrintable(use);
        EXPECT_DOUBLE_EQ(CurrentCurrency(settings).rate, currentRate) << qPrintable(use);
        EXPECT_EQ(UnitName(CurrentCurrency(settings), CreditKind::Money), unit) << qPrintable(use);
        EXPECT_EQ(UnitName(CurrentCurrency(settings), CreditKind::Unlimited), unit)
            << qPrintable(use);
        EXPECT_EQ(UnitName(CurrentCurrency(settings), CreditKind::Traffic), u"Mbytes"_s);
        EXPECT_EQ(UnitName(CurrentCurrency(settings), CreditKind::Time), u"hr"_s);
    }
    EXPECT_DOUBLE_EQ(CurrentRate(ConfigStore(u"/nowhere"_s)), 1.0);
    UseCurrency(u"2"_s, u""_s);
    EXPECT_EQ(UnitName(CurrentCurrency(settings), CreditKind::Money), u""_s);
}

TEST(AmountTexts, AreFixedOrSignificant)
{
    EXPECT_EQ(AmountText(2.5), u"2.50"_s);
    EXPECT_EQ(AmountText(1e9), u"1000000000.00"_s);
    EXPECT_EQ(AmountText(-0.001), u"0.00"_s);
    EXPECT_EQ(AmountText(-1.5), u"-1.50"_s);
    const std::pair<double, QString> four[] = {
        {10.0, u"10"_s},
        {0.5, u"0.5"_s},
        {12345.67, u"12350"_s},
        {3.14159, u"3.142"_s},
        {0.0001234, u"0.0001234"_s},
        {0.0, u"0"_s},
        {9999.6, u"10000"_s},
    };
    for (const auto &[amount, text] : four) {
        EXPECT_EQ(SignificantText(amount, 4), text);
    }
    EXPECT_EQ(SignificantText(12345.67, 5), u"12346"_s);
}

// Without group separators: it can be typed as it is shown.
TEST(AmountTexts, HaveTheDecimalMarkOfTheLocale)
{
    const std::tuple<const char *, QString, QString> cases[] = {
        {"C", u"1234.50"_s, u"0.5"_s},
        {"en_US", u"1234.50"_s, u"0.5"_s},
        {"de_DE", u"1234,50"_s, u"0,5"_s},
        {"de_CH", u"1234.50"_s, u"0.5"_s},
        {"fr_FR", u"1234,50"_s, u"0,5"_s},
        {"ar_EG", u"1234\u066b50"_s, u"0\u066b5"_s},
    };
    constexpr NumberBounds bounds {.least = 0, .most = 1e9, .decimals = 2};
    for (const auto &[name, amount, significant] : cases) {
        const QLocale locale(QString::fromLatin1(name));
        EXPECT_EQ(AmountText(1234.5, locale), amount) << name;
        EXPECT_EQ(SignificantText(0.5, 4, locale), significant) << name;
        EXPECT_EQ(NumberFrom(AmountText(1234.5, locale), bounds, locale), 1234.5) << name;
    }
}

TEST(CreditEntry, RefusesWhatWouldNotBeListedAsTyped)
{
    using Kind = CreditKind;
    struct Case
    {
        Kind kind;
        std::optional<double> typed;
        double rate;
        bool accepted;
    };
    const Case cases[] = {
        {Kind::Traffic, 0.01, 0.0, true},
        {Kind::Traffic, 0.0, 1.0, false},
        {Kind::Traffic, -5.0, 1.0, false},
        {Kind::Time, std::nullopt, 1.0, false},
        {Kind::Time, 1e9, 1.0, true},
        {Kind::Time, 1e9 + 1, 1.0, false},
        {Kind::Money, 10.0, 2.5, true},
        {Kind::Money, 10.0, 0.0, false},
        {Kind::Money, 10.0, -1.0, false},
        {Kind::Money, 0.01, 99.0, true},
        {Kind::Money, 0.01, 101.0, false},
        {Kind::Unlimited, std::nullopt, 0.0, true},
        {Kind::Money, qQNaN(), 1.0, false},
        {Kind::Money, 10.0, qQNaN(), false},
    };
    for (const auto &[kind, typed, rate, accepted] : cases) {
        EXPECT_EQ(!CheckAmount(kind, typed, rate), accepted)
            << static_cast<int>(kind) << ' ' << typed.value_or(-99) << ' ' << rate;
    }
    const TodayOverride today({2026, 11, 21});
    EXPECT_TRUE(CheckExpiry({2026, 11, 20}));
    EXPECT_FALSE(CheckExpiry({2026, 11, 21}));
}

// An import takes no more decimals than a person writes.
TEST(CreditEntry, MoneyComesBackAsItWasGiven)
{
    for (const double rate : {0.92, 1.1, 95.37, 0.0071}) {
        for (const double given : {12.5, 0.01, 99.99, 1234567.89}) {
            const StagedCredit staged = CreditFrom(CreditKind::Money, given, rate, {});
            EXPECT_EQ(InCurrency(std::get<BaseUnits>(staged.amount), rate), given) << rate;
        }
    }
}

TEST(CreditEntry, StagesMoneyInBaseUnits)
{
    const StagedCredit money = CreditFrom(CreditKind::Money, 10, 2.5, {2027, 1, 2});
    EXPECT_EQ(money.amount, CreditAmount(BaseUnits {4.0}));
    EXPECT_FALSE(money.neverExpires);
    EXPECT_EQ(money.expiryDay, u"2027.01.02"_s);
    const StagedCredit traffic = CreditFrom(CreditKind::Traffic, 10, 2.5, {});
    EXPECT_EQ(traffic.amount, CreditAmount(Megabytes {10.0}));
    EXPECT_TRUE(traffic.neverExpires);
    EXPECT_EQ(CreditFrom(CreditKind::Time, 10, 2.5, {}).amount, CreditAmount(Hours {10.0}));
    EXPECT_EQ(CreditFrom(CreditKind::Unlimited, 10, 2.5, {}).amount, CreditAmount(Unbounded {}));
}

} // namespace
