#include "base/mac_address.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MacAddress, IsTwelveDigitsHoweverTheyAreParted)
{
    for (const QString &text : {u"00:11:22:aA:bb:0f"_s,
                                u"00-11-22-AA-BB-0F"_s,
                                u" 0011.22aa.bb0f "_s,
                                u"001122AABB0F"_s}) {
        EXPECT_EQ(MacFrom(text), u"001122AABB0F"_s) << text.toStdString();
    }
    for (const QString &text : {u""_s,
                                u"001122AABB0"_s,
                                u"001122AABB0FF"_s,
                                u"00:11-22:aa:bb:0f"_s,
                                u"00:11:22:aa:bb:0g"_s,
                                u"0011:22aa:bb0f"_s,
                                u"10.0.0.1"_s}) {
        EXPECT_EQ(MacFrom(text), std::nullopt) << text.toStdString();
    }
}
