// Local address ranges: the networks whose workstations the accounting service watches. Kept as
// rangenum, net<i> and mask<i> under the store's key localip.
#pragma once

#include "base/ipv4.h"

#include <QList>

#include <optional>

class KeyEditor;
class KeyReader;

struct AddressRange
{
    Ipv4 network = 0;
    Ipv4 mask = 0;

    bool operator==(const AddressRange &) const = default;
};

constexpr qsizetype kMaxRanges = 50;

// True when each octet of the mask is one that a mask can have. Kept: the octets are looked at one by
// one, so 255.0.255.0 passes.
[[nodiscard]] bool IsMask(Ipv4 mask);

// True when the ranges overlap by the rule below, which depends on which of them came first.
//
// The first octet in which the addresses differ decides: they overlap when the higher one lies below
// the lower one plus the block size of the lower one's mask in that octet. The same four octets
// always overlap. A mask octet of 0 has the block size 255; 254 and 255 have 0.
[[nodiscard]] bool Overlap(const AddressRange &existing, const AddressRange &added);

enum class RangeProblem { Incorrect, AlreadyDefined, Full };

// What a person is told about it.
[[nodiscard]] QString TextOf(RangeProblem problem);

// Whether the range may join the list; an address that is not complete is nothing.
[[nodiscard]] std::optional<RangeProblem> CheckRange(const QList<AddressRange> &existing,
                                                     std::optional<Ipv4> network,
                                                     std::optional<Ipv4> mask);

// At most 50; a number that is missing below rangenum reads as 0.0.0.0, see ReadAddresses().
[[nodiscard]] QList<AddressRange> LoadRanges(const KeyReader &localIp);

// Deletes the old ranges and writes `draft` with its number. Ranges that were not touched stay as they
// stand now, when there are any.
void SaveRanges(KeyEditor &localIp,
                const QList<AddressRange> &base,
                const QList<AddressRange> &draft);
