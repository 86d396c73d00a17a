#include "admin/currency_settings.h"

#include "config/config_store.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Described(const CurrencySettings &settings)
{
    QStringList rows;
    for (const CurrencyRow &row : CurrencyRows(settings)) {
        rows << row.name + u'/' + row.symbol + u'/' + row.rate;
    }
    return rows.join(u' ') + u" -> " + UsedSymbol(settings);
}

} // namespace

TEST(CurrencySettings, OneCurrencyIsDefinedUsedAndDeleted)
{
    CurrencySettings settings;
    settings.trafficPrice = 0.25;
    EXPECT_EQ(Described(settings), u"units/UN/1 -> UN"_s);
    EXPECT_EQ(CurrencyEntry().rate.toDouble(), 1.0);

    AddCurrency(settings, {u"usd"_s, u"Dollar"_s, u"0.034"_s});
    EXPECT_EQ(Described(settings), u"units/UN/1 Dollar/USD/0.03 -> UN"_s);
    EXPECT_EQ(settings.use, CurrencySettings::Defined);

    EXPECT_EQ(SetCurrency(settings, 1), std::nullopt);
    EXPECT_EQ(Described(settings), u"units/UN/1 Dollar/USD/0.03 -> USD"_s);
    EXPECT_EQ(settings.use, CurrencySettings::InUse);
    EXPECT_EQ(SetCurrency(settings, kBaseCurrencyRow), std::nullopt);
    EXPECT_EQ(settings.use, CurrencySettings::Defined) << "it stays defined";
    EXPECT_EQ(UsedSymbol(settings), u"UN"_s);

    DeleteCurrency(settings);
    EXPECT_EQ(Described(settings), u"units/UN/1 -> UN"_s);
    EXPECT_EQ(settings.trafficPrice, 0.25);
    EXPECT_EQ(SetCurrency(settings, kBaseCurrencyRow), std::nullopt);
    EXPECT_EQ(settings.use, CurrencySettings::None);
}

TEST(CurrencySettings, WhatIsRefused)
{
    CurrencySettings settings;
    const std::pair<std::optional<CurrencyProblem>, QString> refusals[] = {
        {CheckEntry({u""_s, u"Dollar"_s, u"1"_s}), u"Enter the currency symbol please"_s},
        {CheckEntry({u"USD"_s, u""_s, u""_s}), u"Enter the currency rate please"_s},
        {CheckEntry({u"USD"_s, u""_s, u"0.00"_s}), u"Enter the currency rate please"_s},
        {CheckDelete(kBaseCurrencyRow), u"You can not delete base currency"_s},
        {CheckDelete(std::nullopt), u"Select an item to delete"_s},
        {CheckEdit(kBaseCurrencyRow), u"You can not edit base currency"_s},
        {CheckEdit(std::nullopt), u"Select currency to edit"_s},
        {SetCurrency(settings, std::nullopt), u"Select currency to set"_s},
    };
    for (const auto &[problem, text] : refusals) {
        ASSERT_TRUE(problem) << text.toStdString();
        EXPECT_EQ(TextOf(*problem), text);
    }
    EXPECT_EQ(CheckEntry({u"USD"_s, u""_s, u"1"_s}), std::nullopt);
    EXPECT_EQ(CheckDelete(1), std::nullopt);
    EXPECT_EQ(CheckEdit(1), std::nullopt);
}

TEST(CurrencySettings, WhatWasCutToBeShownStaysWholeUnlessTouched)
{
    CurrencySettings settings;
    settings.use = CurrencySettings::InUse;
    settings.name = u"A currency of a long name"_s;
    settings.symbol = u"LONGSYMBOLS"_s;
    settings.rate = 12345.6789;
    EXPECT_EQ(UsedSymbol(settings), u"LONGSYMBOL"_s) << "10 characters";
    const CurrencyEntry shown = EntryOf(settings);
    EXPECT_EQ(shown.title, u"A currency of a"_s);
    EXPECT_EQ(shown.symbol, u"LONGS"_s);
    EXPECT_EQ(shown.rate, u"12345"_s);

    CurrencySettings changed = settings;
    ChangeCurrency(changed, shown, shown);
    EXPECT_EQ(changed, settings);
    ChangeCurrency(changed, shown, {u"eur"_s, u"Euro"_s, u"0.5"_s});
    EXPECT_EQ(Described(changed), u"units/UN/1 Euro/EUR/0.50 -> EUR"_s);
}

class StoredCurrency : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const ConfigKeyId key : {ConfigKeyId::Base, ConfigKeyId::Price}) {
            ASSERT_TRUE(store.CreateKey(key));
        }
    }

    [[nodiscard]] CurrencySettings Load() const
    {
        CurrencySettings settings;
        ReadPrice(settings, store.ReadKey(ConfigKeyId::Price).value(), 1024);
        ReadCurrency(settings, store.ReadKey(ConfigKeyId::Base).value(), 1024);
        return settings;
    }

    void Save(const CurrencySettings &base, const CurrencySettings &draft) const
    {
        EXPECT_TRUE(SavePrice(store, {base, draft}));
        EXPECT_TRUE(SaveCurrency(store, {base, draft}));
    }

    const QTemporaryDir folder;
    const ConfigStore store {folder.path()};
};

TEST_F(StoredCurrency, ComesBack)
{
    EXPECT_EQ(Load(), CurrencySettings());
    CurrencySettings settings;
    settings.trafficPrice = 0.123456789;
    AddCurrency(settings, {u"usd"_s, u"Dollar"_s, u"0.034"_s});
    for (const int use : {1, 2}) {
        settings.use = use;
        Save(Load(), settings);
        EXPECT_EQ(Load(), settings) << use;
    }
    EXPECT_EQ(store.ReadText(values::kTrafPrice), u"0.123456789"_s);
    EXPECT_EQ(store.ReadText(values::kCurrencyRate), u"0.034"_s);

    EXPECT_TRUE(store.WriteText(values::kCurUse, u"3"_s));
    EXPECT_EQ(Load().use, CurrencySettings::None) << "a code of no meaning";
}

TEST_F(StoredCurrency, IsWrittenAsAWholeOrNotAtAll)
{
    CurrencySettings dollar;
    AddCurrency(dollar, {u"usd"_s, u"Dollar"_s, u"1.00"_s});
    Save(Load(), dollar);
    CurrencySettings used = dollar;
    EXPECT_EQ(SetCurrency(used, 1), std::nullopt);

    // Another console takes the currency away while this one has it set.
    CurrencySettings none = dollar;
    DeleteCurrency(none);
    Save(dollar, none);
    Save(dollar, dollar);
    EXPECT_EQ(Load(), none) << "nobody touched it here";
    EXPECT_EQ(store.ReadText(values::kCurrencyName), u""_s);
    Save(dollar, used);
    EXPECT_EQ(Load(), used) << "a currency in use without a name would be none";
}

TEST_F(StoredCurrency, APriceThatWasNotTouchedStaysAsAnotherConsoleLeftIt)
{
    const CurrencySettings shown = Load();
    CurrencySettings dearer = shown;
    dearer.trafficPrice = 0.5;
    Save(shown, dearer);
    CurrencySettings draft = shown;
    AddCurrency(draft, {u"usd"_s, u"Dollar"_s, u"0.034"_s});
    Save(shown, draft);
    EXPECT_EQ(Load().trafficPrice, 0.5);
    EXPECT_EQ(Load().symbol, u"USD"_s);
}
