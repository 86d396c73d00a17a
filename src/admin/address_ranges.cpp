#include "admin/address_ranges.h"

#include "config/key_values.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(AddressRanges)
};

// Part of the design, and not 256 less the octet: see 0 and 255.
struct MaskOctet
{
    quint32 octet;
    quint32 blockSize;
};
constexpr MaskOctet kMaskOctets[] = {
    {0, 255},
    {128, 128},
    {192, 64},
    {224, 32},
    {240, 16},
    {248, 8},
    {252, 4},
    {254, 0},
    {255, 0},
};

const MaskOctet *FindMaskOctet(quint32 octet)
{
    const auto *found =
        std::ranges::find_if(kMaskOctets, [octet](MaskOctet each) { return each.octet == octet; });
    return found == std::end(kMaskOctets) ? nullptr : found;
}

// A mask octet from a store written by hand may be any number; then its block has no size.
quint32 BlockSize(quint32 octet)
{
    const MaskOctet *found = FindMaskOctet(octet);
    return found ? found->blockSize : 0;
}

int RangeCount(const KeyReader &localIp)
{
    return std::clamp(localIp.ReadInteger(values::kRangeNum), 0, int {kMaxRanges});
}

} // namespace

bool IsMask(Ipv4 mask)
{
    for (int i = 0; i < 4; ++i) {
        if (!FindMaskOctet(Octet(mask, i))) {
            return false;
        }
    }
    return true;
}

bool Overlap(const AddressRange &existing, const AddressRange &added)
{
    for (int i = 0; i < 4; ++i) {
        const quint32 e = Octet(existing.network, i);
        const quint32 a = Octet(added.network, i);
        if (a < e) {
            // Kept: a lower second octet is compared with the third octet of the existing range.
            const quint32 higher = i == 1 ? Octet(existing.network, 2) : e;
            return higher < a + BlockSize(Octet(added.mask, i));
        }
        if (e < a) {
            return a < e + BlockSize(Octet(existing.mask, i));
        }
    }
    return true;
}

QString TextOf(RangeProblem problem)
{
    switch (problem) {
    case RangeProblem::Incorrect:
        return Words::tr("You entered incorrect IP addresses and/or subnet mask");
    case RangeProblem::AlreadyDefined:
        return Words::tr("You have already defined this range of IP addresses");
    case RangeProblem::Full:
        return Words::tr("You can not define more than %1 ranges of IP addresses").arg(kMaxRanges);
    }
    Q_UNREACHABLE();
}

std::optional<RangeProblem> CheckRange(const QList<AddressRange> &existing,
                                       std::optional<Ipv4> network,
                                       std::optional<Ipv4> mask)
{
    if (!network || !mask || !IsMask(*mask)) {
        return RangeProblem::Incorrect;
    }
    const AddressRange added {*network, *mask};
    if (std::ranges::any_of(existing, [&](const auto &each) { return Overlap(each, added); })) {
        return RangeProblem::AlreadyDefined;
    }
    if (existing.size() >= kMaxRanges) {
        return RangeProblem::Full;
    }
    return std::nullopt;
}

QList<AddressRange> LoadRanges(const KeyReader &localIp)
{
    const int count = RangeCount(localIp);
    QList<AddressRange> ranges;
    for (int i = 0; i < count; ++i) {
        ranges.append({localIp.ReadNumber(values::kNet, i).value_or(0),
                       localIp.ReadNumber(values::kMask, i).value_or(0)});
    }
    return ranges;
}

void SaveRanges(KeyEditor &localIp,
                const QList<AddressRange> &base,
                const QList<AddressRange> &draft)
{
    if (draft == base && localIp.Has(values::kRangeNum)) {
        return;
    }
    for (int i = 0; i < kMaxRanges; ++i) {
        if (!localIp.DeleteNumber(values::kMask, i) || !localIp.DeleteNumber(values::kNet, i)) {
            break;
        }
    }
    const auto count = static_cast<int>(std::min(draft.size(), kMaxRanges));
    for (int i = 0; i < count; ++i) {
        localIp.WriteNumber(values::kNet, i, draft[i].network);
        localIp.WriteNumber(values::kMask, i, draft[i].mask);
    }
    localIp.WriteInteger(values::kRangeNum, count);
}
