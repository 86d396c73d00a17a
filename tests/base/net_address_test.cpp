#include "base/net_address.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NetAddress, AddressesAreReadAndWritten)
{
    struct Case
    {
        QString text;
        QString written; // empty: no address
    };
    const Case cases[] = {{u"10.0.0.1"_s, u"10.0.0.1"_s},
                          {u"fe80:0::1"_s, u"fe80::1"_s},
                          {u"::ffff:1.2.3.4"_s, u"1.2.3.4"_s},
                          {u"10.0.0"_s, {}},
                          {u"fe80::1%eth0"_s, {}},
                          {u""_s, {}}};
    for (const auto &[text, written] : cases) {
        const auto address = NetAddress::From(text);
        EXPECT_EQ(address ? address->Text() : QString(), written) << qPrintable(text);
    }
    EXPECT_LT(NetAddress::From(u"10.0.0.9"), NetAddress::From(u"10.0.0.10"));
    for (const auto &[text, written] : {Case {u"00:1a:2B:3c:4d:5e"_s, u"001A2B3C4D5E"_s},
                                        {u"001a2b3c4d5e"_s, u"001A2B3C4D5E"_s},
                                        {u"001a.2b3c.4d5e"_s, u"001A2B3C4D5E"_s},
                                        {u"00-1a-2b-3c-4d"_s, {}},
                                        {u"00-1a-2b-3c-4d-5g"_s, {}},
                                        {u""_s, {}}}) {
        const auto hardware = HardwareAddress::From(text);
        EXPECT_EQ(hardware ? hardware->Text() : QString(), written) << qPrintable(text);
    }
}
