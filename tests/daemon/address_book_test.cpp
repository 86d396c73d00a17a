// Whose bytes an address counts while addresses come, go and move.
#include "daemon/address_book.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const NetAddress kFirst = NetAddress::FromIpv4(0x0A4D0001);
const NetAddress kSecond = NetAddress::FromIpv4(0x0A4D0002);
const NetAddress kThird = NetAddress::FromIpv4(0x0A4D0003);

Count CountOf(std::vector<AddressCounters> counters)
{
    return {.gatewayId = {},
            .generation = 1,
            .at = {},
            .counters = std::move(counters),
            .online = {},
            .usedUp = {},
            .usedUpGroups = {}};
}

} // namespace

TEST(AddressBook, KeepsWhoseBytesWereCountedBeforeTheStart)
{
    AddressBook book;
    CountersByKey counters;
    counters.insert({kFirst, false}, {UserId {1}, 700, 70});
    counters.insert({kSecond, true}, {UserId {2}, 900, 90}); // counted as nobody's
    book.Begin(counters);
    book.Complete({{kFirst, UserId {5}}, {kThird, UserId {3}}});
    EXPECT_EQ(book.OwnerOf(kFirst), UserId {1}); // until the round that moves it
    EXPECT_EQ(book.OwnerOf(kSecond), UserId());
    EXPECT_EQ(book.OwnerOf(kThird), UserId {3});
    EXPECT_EQ(book.Accounted(), (QHash<NetAddress, quint64> {{kFirst, 700}}));
}

TEST(AddressBook, RetiresWhatIsNobodysUntilItIsAccounted)
{
    AddressBook book;
    book.BeginAnew({{kFirst, UserId {1}}, {kSecond, UserId {2}}});
    book.NoteAccounted(
        CountOf({{kFirst, false, UserId {1}, 500, 50}, {kSecond, false, UserId {2}, 300, 30}}));
    EXPECT_FALSE(book.Take({{kFirst, UserId {1}}, {kSecond, UserId {2}}}));
    EXPECT_TRUE(book.Take({{kSecond, UserId {1}}}));
    EXPECT_EQ(book.OwnerOf(kFirst), UserId {1});
    EXPECT_EQ(book.OwnerOf(kSecond), UserId {1});
    EXPECT_EQ(book.Retired(), std::vector {kFirst});

    const AddressBook::Outdated gone = book.OutdatedOf({kFirst, kSecond});
    EXPECT_EQ(gone.retired, std::vector {kFirst}); // the other one is somebody's
    EXPECT_TRUE(gone.unknown.empty());
    book.Forget(gone);
    EXPECT_EQ(book.OwnerOf(kFirst), UserId());
    EXPECT_EQ(book.Accounted(), (QHash<NetAddress, quint64> {{kSecond, 300}}));
    const CounterKey key {kFirst, false};
    EXPECT_EQ(book.Forgotten(), std::vector {key});
    book.Drop({key});
    EXPECT_TRUE(book.Forgotten().empty());
}

TEST(AddressBook, TakesARetiredAddressBack)
{
    AddressBook book;
    book.BeginAnew({{kFirst, UserId {1}}});
    book.Take({});
    EXPECT_EQ(book.Retired(), std::vector {kFirst});
    book.Take({{kFirst, UserId {2}}});
    EXPECT_TRUE(book.Retired().empty());
    EXPECT_EQ(book.OwnerOf(kFirst), UserId {2});
    EXPECT_TRUE(book.OutdatedOf({kFirst}).retired.empty());
}

TEST(AddressBook, ForgetsUnknownAddressesThatWereAccounted)
{
    AddressBook book;
    book.BeginAnew({{kFirst, UserId {1}}});
    book.NoteAccounted(CountOf({{kFirst, true, UserId {1}, 500, 50}}));
    EXPECT_TRUE(book.Accounted().isEmpty()); // no part of the counters that bounds speak of
    const AddressBook::Outdated gone = book.OutdatedOf({});
    EXPECT_EQ(gone.unknown, std::vector {kFirst});
    book.Forget(gone);
    EXPECT_TRUE(book.OutdatedOf({}).unknown.empty());
    EXPECT_EQ(book.Forgotten(), (std::vector<CounterKey> {{kFirst, true}}));
}
