#include "gateway/neighbours.h"
#include "gateway/table_reader.h"
#include "gateway/table_rules.h"
#include "gateway/table_writer.h"

#include <cstring>
#include <gtest/gtest.h>
#include <linux/neighbour.h>
#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <random>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

NetlinkView FirstListed(const NetlinkBytes &message)
{
    NetlinkView rest = message;
    const auto attributes = TakeMessage(rest)->Attributes(sizeof(nfgenmsg));
    NetlinkView list = attributes->Bytes(NFTA_SET_ELEM_LIST_ELEMENTS).value();
    return TakeListed(list).value();
}

// A message that adds the element, as the kernel would list it.
NetlinkBytes Listing(SetId set, const Element &element)
{
    MessagePieces pieces;
    ChangeElements(pieces, set, {{}, {element}});
    return pieces.front().Bytes();
}

NetlinkBytes QuotaMessage()
{
    NetlinkWriter writer;
    PutQuota(writer, {QuotaId::Kind::Group, 7}, 1000, 1001);
    return writer.Bytes();
}

NetlinkBytes NeighbourMessage()
{
    const ndmsg header {.ndm_family = AF_INET,
                        .ndm_pad1 = 0,
                        .ndm_pad2 = 0,
                        .ndm_ifindex = 3,
                        .ndm_state = NUD_STALE,
                        .ndm_flags = 0,
                        .ndm_type = 0};
    NetlinkWriter writer;
    writer.BeginWith(RTM_NEWNEIGH, 0, {reinterpret_cast<const quint8 *>(&header), sizeof header});
    writer.PutBytes(NDA_DST, NetlinkBytes {10, 1, 2, 3});
    writer.PutBytes(NDA_LLADDR, NetlinkBytes {1, 2, 3, 4, 5, 6});
    writer.End();
    return writer.Bytes();
}

NetAddress Address(const QString &text)
{
    return NetAddress::From(text).value();
}

// Reads everything that may come from the kernel out of `bytes`: nothing may break.
void ReadAllOf(NetlinkView bytes)
{
    while (const auto message = TakeMessage(bytes)) {
        static_cast<void>(message->Error());
        static_cast<void>(QuotaObjectFrom(*message));
        static_cast<void>(NeighbourEntryFrom(*message));
        const auto attributes = message->Attributes(sizeof(nfgenmsg));
        if (!attributes) {
            continue;
        }
        NetlinkView list = attributes->Bytes(NFTA_SET_ELEM_LIST_ELEMENTS).value_or(NetlinkView());
        while (const auto listed = TakeListed(list)) {
            for (int set = 0; set < kSetCount; ++set) {
                for (const Family family : kFamilies) {
                    static_cast<void>(ReadElementFrom(*listed, static_cast<SetId>(set), family));
                }
            }
        }
    }
}

} // namespace

TEST(Netlink, ElementsAreReadAsTheyWereWritten)
{
    struct Case
    {
        SetId set;
        Element element;
    };
    const auto hardware = NumberOf(*HardwareAddress::From(u"001122334455"_s));
    const auto value = [](PacketVerdict verdict) { return static_cast<quint32>(verdict); };
    const Case cases[] = {
        {SetId::Ports, {Address(u"10.0.0.1"_s), 65535, 0}},
        {SetId::Hardware, {Address(u"fd00::1"_s), hardware, 0}},
        {SetId::From, {Address(u"10.0.0.1"_s), 0, value(PacketVerdict::HardwareDeny)}},
        {SetId::From, {Address(u"10.0.0.1"_s), 0, value(PacketVerdict::Refuse)}},
        {SetId::To, {Address(u"fd00::1"_s), 0, value(PacketVerdict::Silent)}},
        {SetId::To, {Address(u"fd00::1"_s), 0, value(PacketVerdict::Pass)}},
        {SetId::To, {Address(u"fd00::1"_s), 0, value(PacketVerdict::Left)}},
        {SetId::Left, {Address(u"10.0.0.1"_s), 0, 4000000000U}},
        {SetId::GroupLeft, {Address(u"10.0.0.1"_s), 0, 7}}};
    for (const auto &[set, element] : cases) {
        const Family family = FamilyOf(element.address);
        const NetlinkBytes message = Listing(set, element);
        const auto read = ReadElementFrom(FirstListed(message), set, family);
        ASSERT_TRUE(read) << LayoutOf(set).stem;
        EXPECT_EQ(read->element, element) << LayoutOf(set).stem;
        const Family other = family == Family::V4 ? Family::V6 : Family::V4;
        EXPECT_FALSE(ReadElementFrom(FirstListed(message), set, other)) << LayoutOf(set).stem;
    }
    // A counter that is not there is no zero.
    const NetlinkBytes uncounted = Listing(SetId::Sent, {Address(u"10.0.0.1"_s), 0, 0});
    EXPECT_FALSE(ReadElementFrom(FirstListed(uncounted), SetId::Sent, Family::V4));
}

TEST(Netlink, QuotasAndNeighboursAreRead)
{
    NetlinkBytes bytes = QuotaMessage();
    NetlinkView rest = bytes;
    const auto quota = QuotaObjectFrom(*TakeMessage(rest));
    ASSERT_TRUE(quota && quota->mine);
    EXPECT_EQ(quota->id, (QuotaId {QuotaId::Kind::Group, 7}));
    EXPECT_EQ(quota->quota.bound, 1000U);

    bytes = NeighbourMessage();
    rest = bytes;
    const auto entry = NeighbourEntryFrom(*TakeMessage(rest));
    ASSERT_TRUE(entry && entry->neighbour);
    EXPECT_EQ(entry->interfaceNumber, 3U);
    EXPECT_EQ(entry->neighbour->address.Text(), u"10.1.2.3"_s);
    EXPECT_EQ(entry->neighbour->hardware.Text(), u"010203040506"_s);
}

TEST(Netlink, NoCutMessageReadsAsAValue)
{
    const NetlinkBytes whole = QuotaMessage();
    for (size_t size = 0; size < whole.size(); ++size) {
        NetlinkView rest = NetlinkView(whole).first(size);
        EXPECT_FALSE(TakeMessage(rest)) << size;
        EXPECT_EQ(rest.size(), size);
        // Cut, with a length that says so: what a filter or a small buffer leaves.
        if (size >= sizeof(nlmsghdr)) {
            NetlinkBytes cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
            const auto length = static_cast<quint32>(size);
            std::memcpy(cut.data(), &length, sizeof length);
            rest = cut;
            const auto quota = QuotaObjectFrom(*TakeMessage(rest));
            EXPECT_FALSE(quota && quota->mine) << size;
        }
    }
    const NetlinkBytes listing = Listing(SetId::To, {Address(u"10.0.0.1"_s), 0, 3});
    const NetlinkView element = FirstListed(listing);
    for (size_t size = 0; size < element.size(); ++size) {
        EXPECT_FALSE(ReadElementFrom(element.first(size), SetId::To, Family::V4)) << size;
    }
}

TEST(Netlink, GarbledMessagesBreakNothing)
{
    std::mt19937 random(7);
    const NetlinkBytes seeds[] = {QuotaMessage(),
                                  NeighbourMessage(),
                                  Listing(SetId::From, {Address(u"10.0.0.1"_s), 0, 4}),
                                  Listing(SetId::Hardware, {Address(u"fd00::1"_s), 99, 0}),
                                  Listing(SetId::Left, {Address(u"fd00::1"_s), 0, 99})};
    for (int round = 0; round < 40000; ++round) {
        NetlinkBytes bytes = seeds[random() % std::size(seeds)];
        const auto changes = 1 + random() % 6;
        for (unsigned i = 0; i < changes; ++i) {
            bytes[random() % bytes.size()] = static_cast<quint8>(random());
        }
        bytes.resize(bytes.size() - random() % 3 * (random() % bytes.size()) / 2);
        ReadAllOf(bytes);
    }
}

TEST(Netlink, RangesAreMerged)
{
    struct Case
    {
        std::vector<Ipv4Mask> masks;
        std::vector<Ipv4Range> ranges;
    };
    const Case cases[] = {
        {{}, {}},
        {{{0x0A000000, 0xFF000000}, {0x0A010000, 0xFFFF0000}}, {{0x0A000000, 0x0AFFFFFF}}},
        {{{0xC0A80100, 0xFFFFFF00}, {0xC0A80000, 0xFFFFFF00}}, {{0xC0A80000, 0xC0A801FF}}},
        {{{0xC0A80200, 0xFFFFFF00}, {0xC0A80000, 0xFFFFFF00}},
         {{0xC0A80000, 0xC0A800FF}, {0xC0A80200, 0xC0A802FF}}},
        {{{0xFFFFFF00, 0xFFFFFF00}, {0, 0xFF000000}}, {{0, 0x00FFFFFF}, {0xFFFFFF00, 0xFFFFFFFF}}},
        {{{0, 0}, {0xFFFFFFFF, 0xFFFFFFFF}}, {{0, 0xFFFFFFFF}}},
        {{{0x0A000005, 0xFFFF00FF}}, {}}};
    for (const auto &[masks, ranges] : cases) {
        EXPECT_EQ(MergedRanges(masks), ranges);
    }
    for (const Ipv4 mask : {0U, 0x80000000U, 0xFFFFFF00U, 0xFFFFFFFFU}) {
        EXPECT_TRUE(IsContiguous(mask)) << mask;
    }
    for (const Ipv4 mask : {1U, 0xFF00FF00U, 0x7FFFFFFFU}) {
        EXPECT_FALSE(IsContiguous(mask)) << mask;
    }
}
