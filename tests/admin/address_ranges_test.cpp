#include "admin/address_ranges.h"

#include "admin/exclusions.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

AddressRange Range(const char *network, const char *mask)
{
    return {Ipv4From(QString::fromLatin1(network)).value(),
            Ipv4From(QString::fromLatin1(mask)).value()};
}

struct Pair
{
    const char *existing;
    const char *existingMask;
    const char *added;
    const char *addedMask;
    bool overlap;
};

// Each worked out by hand. "!" marks what plain arithmetic on networks would answer otherwise.
const Pair kPairs[] = {
    // the same four octets, whatever the masks
    {"10.0.0.0", "255.255.255.0", "10.0.0.0", "255.255.255.0", true},
    {"10.0.0.5", "255.255.255.255", "10.0.0.5", "255.255.255.255", true},
    {"10.0.0.5", "255.255.255.254", "10.0.0.5", "255.0.0.0", true},
    // fourth octet, the new one higher: the existing mask's block
    {"10.0.0.0", "255.255.255.0", "10.0.0.128", "255.255.255.128", true}, // 128 < 0 + 255
    {"10.0.0.0", "255.255.255.0", "10.0.0.254", "255.255.255.255", true}, // 254 < 255
    {"10.0.0.0", "255.255.255.0", "10.0.0.255", "255.255.255.255", false}, // ! 255 < 255
    {"10.0.0.0", "255.255.255.128", "10.0.0.127", "255.255.255.255", true},
    {"10.0.0.0", "255.255.255.128", "10.0.0.128", "255.255.255.128", false},
    {"10.0.0.64", "255.255.255.192", "10.0.0.127", "255.255.255.255", true},
    {"10.0.0.64", "255.255.255.192", "10.0.0.128", "255.255.255.255", false},
    {"10.0.0.32", "255.255.255.224", "10.0.0.63", "255.255.255.255", true},
    {"10.0.0.32", "255.255.255.224", "10.0.0.64", "255.255.255.255", false},
    {"10.0.0.16", "255.255.255.240", "10.0.0.31", "255.255.255.255", true},
    {"10.0.0.16", "255.255.255.240", "10.0.0.32", "255.255.255.255", false},
    {"10.0.0.0", "255.255.255.248", "10.0.0.7", "255.255.255.255", true},
    {"10.0.0.0", "255.255.255.248", "10.0.0.8", "255.255.255.255", false},
    {"10.0.0.4", "255.255.255.252", "10.0.0.7", "255.255.255.255", true},
    {"10.0.0.4", "255.255.255.252", "10.0.0.8", "255.255.255.255", false},
    {"10.0.0.4", "255.255.255.254", "10.0.0.5", "255.255.255.255", false}, // ! 5 < 4 + 0
    {"10.0.0.5", "255.255.255.255", "10.0.0.6", "255.255.255.255", false},
    // fourth octet, the new one lower: the new mask's block
    {"10.0.0.128", "255.255.255.128", "10.0.0.0", "255.255.255.0", true},
    {"10.0.0.128", "255.255.255.128", "10.0.0.0", "255.255.255.128", false},
    {"10.0.0.255", "255.255.255.255", "10.0.0.0", "255.255.255.0", false}, // ! 255 < 0 + 255
    {"10.0.0.6", "255.255.255.255", "10.0.0.5", "255.255.255.255", false},
    // third octet
    {"192.168.0.0", "255.255.255.0", "192.168.1.0", "255.255.255.0", false}, // 1 < 0 + 0
    {"192.168.0.0", "255.255.0.0", "192.168.1.0", "255.255.255.0", true},
    {"192.168.0.0", "255.255.0.0", "192.168.255.0", "255.255.255.0", false}, // ! 255 < 255
    {"192.168.0.0", "255.255.252.0", "192.168.3.0", "255.255.255.0", true},
    {"192.168.0.0", "255.255.252.0", "192.168.4.0", "255.255.255.0", false},
    {"192.168.0.0", "255.255.254.0", "192.168.1.0", "255.255.255.0", false}, // ! 1 < 0 + 0
    {"192.168.1.0", "255.255.255.0", "192.168.0.0", "255.255.0.0", true},
    {"192.168.15.0", "255.255.255.0", "192.168.0.0", "255.255.240.0", true},
    {"192.168.16.0", "255.255.255.0", "192.168.0.0", "255.255.240.0", false},
    // second octet, the new one higher
    {"172.16.0.0", "255.240.0.0", "172.31.0.0", "255.255.0.0", true},
    {"172.16.0.0", "255.240.0.0", "172.32.0.0", "255.255.0.0", false},
    {"10.1.0.0", "255.255.0.0", "10.2.0.0", "255.255.0.0", false},
    // second octet, the new one lower: the third octet of the existing range is compared
    {"172.20.0.0", "255.255.0.0", "172.16.0.0", "255.240.0.0", true}, // 0 < 32
    {"172.32.0.0", "255.255.0.0", "172.16.0.0", "255.240.0.0", true}, // ! 0 < 32
    {"172.20.31.0", "255.255.255.0", "172.16.0.0", "255.240.0.0", true}, // 31 < 32
    {"172.20.40.0", "255.255.255.0", "172.16.0.0", "255.240.0.0", false}, // ! 40 < 32
    {"172.20.15.0", "255.255.255.0", "172.16.0.0", "255.255.0.0", true}, // ! 15 < 16
    {"172.20.16.0", "255.255.255.0", "172.16.0.0", "255.255.0.0", false}, // 16 < 16
    // first octet
    {"10.0.0.0", "255.0.0.0", "11.0.0.0", "255.0.0.0", false},
    {"10.0.0.0", "255.0.0.0", "9.0.0.0", "255.0.0.0", false},
    {"8.0.0.0", "252.0.0.0", "11.0.0.0", "255.0.0.0", true},
    {"8.0.0.0", "252.0.0.0", "12.0.0.0", "255.0.0.0", false},
    {"11.0.0.0", "255.0.0.0", "8.0.0.0", "252.0.0.0", true},
    {"12.0.0.0", "255.0.0.0", "8.0.0.0", "252.0.0.0", false},
    {"0.0.0.0", "0.0.0.0", "200.1.1.1", "255.255.255.255", true},
    {"0.0.0.0", "0.0.0.0", "255.0.0.0", "255.0.0.0", false}, // ! 255 < 255
    {"128.0.0.0", "128.0.0.0", "192.0.0.0", "255.0.0.0", true},
};

} // namespace

TEST(AddressRanges, OverlapTable)
{
    for (const Pair &pair : kPairs) {
        EXPECT_EQ(
            Overlap(Range(pair.existing, pair.existingMask), Range(pair.added, pair.addedMask)),
            pair.overlap)
            << pair.existing << '/' << pair.existingMask << " then " << pair.added << '/'
            << pair.addedMask;
    }
}

TEST(AddressRanges, EachOctetOfAMaskIsLookedAtAlone)
{
    for (quint32 octet = 0; octet < 256; ++octet) {
        const bool known = octet == 0 || octet == 128 || octet == 192 || octet == 224
            || octet == 240 || octet == 248 || octet == 252 || octet == 254 || octet == 255;
        for (const int shift : {0, 8, 16, 24}) {
            const Ipv4 others = 0xFFFFFFFFU & ~(0xFFU << shift);
            EXPECT_EQ(IsMask(others | (octet << shift)), known) << octet << " at " << shift;
        }
    }
    EXPECT_TRUE(IsMask(0xFF00FF00U)) << "255.0.255.0";
}

TEST(AddressRanges, WhatIsRefused)
{
    const QList<AddressRange> existing {Range("10.0.0.0", "255.255.255.0")};
    const Ipv4 network = Ipv4From(u"10.1.0.0"_s).value();
    const Ipv4 mask = 0xFFFFFF00U;
    const auto incorrect = u"You entered incorrect IP addresses and/or subnet mask"_s;
    EXPECT_EQ(CheckRange(existing, network, mask), std::nullopt);
    EXPECT_EQ(TextOf(CheckRange(existing, std::nullopt, mask).value()), incorrect);
    EXPECT_EQ(TextOf(CheckRange(existing, network, std::nullopt).value()), incorrect);
    EXPECT_EQ(TextOf(CheckRange(existing, network, 0xFFFFFD00U).value()), incorrect);
    EXPECT_EQ(TextOf(CheckRange(existing, existing[0].network, mask).value()),
              u"You have already defined this range of IP addresses"_s);

    QList<AddressRange> full;
    for (Ipv4 i = 0; i < kMaxRanges; ++i) {
        full.append({0x0A000000U + (i << 8U), 0xFFFFFF00U});
    }
    EXPECT_EQ(TextOf(CheckRange(full, Ipv4From(u"172.16.0.0"_s), mask).value()),
              u"You can not define more than 50 ranges of IP addresses"_s);
    EXPECT_EQ(CheckRange(full, full[49].network, mask), RangeProblem::AlreadyDefined);
}

TEST(Exclusions, WhatIsRefused)
{
    const QList<Ipv4> existing {0x0A000001U};
    EXPECT_EQ(CheckExclusion(existing, 0x0A000002U), std::nullopt);
    EXPECT_EQ(TextOf(CheckExclusion(existing, std::nullopt).value()), u"Enter IP address please"_s);
    EXPECT_EQ(CheckExclusion(existing, 0), ExclusionProblem::Blank);
    EXPECT_EQ(TextOf(CheckExclusion(existing, 0x0A000001U).value()),
              u"This IP address has been already excluded"_s);
}
