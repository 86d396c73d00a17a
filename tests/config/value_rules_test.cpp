#include "config/value_rules.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ValueRules, ThereIsOneForEveryValue)
{
    QSet<QString> names;
    for (const ValueRule &rule : AllValueRules()) {
        const QString name = FullNameOf(rule.value);
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
        names << name;
        EXPECT_EQ(FindValueRule(name.toUpper()), &rule) << name.toStdString();
    }
    for (const TextValue &value : values::kAllTexts) {
        EXPECT_TRUE(names.contains(FullNameOf(value))) << value.name;
    }
    EXPECT_EQ(names.size(), qsizetype(values::kAllTexts.size()));
}

TEST(ValueRules, AShortNameIsEnoughWhereOneValueHasIt)
{
    EXPECT_EQ(FindValueRule(u"trafprice"_s), FindValueRule(u"Price/trafprice"_s));
    ASSERT_NE(FindValueRule(u"nic"_s), nullptr);
    EXPECT_EQ(FindValueRule(u"nic"_s)->value.key, ConfigKeyId::Base); // its full name
    EXPECT_EQ(FindValueRule(u"tallyspring/nic"_s)->value.key, ConfigKeyId::AdapterBind);
    EXPECT_EQ(FindValueRule(u"trafprices"_s), nullptr);
}

TEST(ValueRules, TellWhatAValueMayHold)
{
    struct Case
    {
        const char *name;
        QString text;
        bool fits;
    };
    const Case cases[] = {
        {"timer", u"0"_s, true},
        {"timer", u"86400"_s, true},
        {"timer", u"86401"_s, false},
        {"timer", u"-1"_s, false},
        {"timer", u"60s"_s, false},
        {"timer", u""_s, false},
        {"ControlMAC", u"1"_s, true},
        {"ControlMAC", u"2"_s, false},
        {"currencyrate", u"0.5"_s, true},
        {"currencyrate", u"0"_s, false},
        {"currencyrate", u"0,5"_s, false},
        {"trafprice", u"0"_s, true},
        {"OnStop", u"keep"_s, true},
        {"OnStop", u""_s, true},
        {"OnStop", u"Keep"_s, false},
        {"DefProfile/Mode", u"5"_s, true},
        {"DefProfile/Mode", u"3"_s, false},
        {"bill dsn", QString(32, u'x'), true},
        {"bill dsn", QString(33, u'x'), false},
        {"GatewayId", QString(64, u'x'), true},
        {"GatewayId", QString(65, u'x'), false},
        {"ReportOwner", QString(511, u'\u00e4'), true},
        {"ReportOwner", QString(512, u'\u00e4'), false},
    };
    for (const auto &[name, text, fits] : cases) {
        const auto problem = CheckValue(*FindValueRule(QString::fromLatin1(name)), text);
        EXPECT_EQ(!problem, fits) << name << " " << text.toStdString();
        EXPECT_TRUE(!problem || problem->startsWith(u"is to be "_s));
    }
}
