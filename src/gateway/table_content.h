// Which elements and quotas the table holds, or should hold.
#pragma once

#include "gateway/policy.h"
#include "gateway/table_layout.h"

#include <map>
#include <set>

struct Quota
{
    quint64 bound = 0; // bytes
    bool depleted = false; // it was used up once, and counts what it refuses since
    bool drifted = false; // and its bound was raised at the same moment: it must be made anew

    bool operator==(const Quota &) const = default;
};
using Quotas = std::map<QuotaId, Quota>;

struct TableContent
{
    // Sent stands for Received too: a known address is in both. Those that packets add are not here.
    std::array<Elements, kSetCount> sets;
    Quotas quotas;

    [[nodiscard]] Elements &operator[](SetId set) { return sets[static_cast<size_t>(set)]; }
    [[nodiscard]] const Elements &operator[](SetId set) const
    {
        return sets[static_cast<size_t>(set)];
    }
};

// The content for `policy`. The counted addresses that stand and are nobody's any more are retired:
// they stay counted, and their packets are dropped silently. Of two clients with the same address
// the one with the lower id has it.
[[nodiscard]] TableContent ContentFor(const Policy &policy, const TableContent &standing);

// Whether the set has an element of the family.
[[nodiscard]] bool HasAny(const TableContent &content, SetId set, Family family);

// The addresses of a quota, sorted.
using QuotaMembers = std::map<QuotaId, std::vector<NetAddress>>;
[[nodiscard]] QuotaMembers MembersOf(const TableContent &content);

// Which quotas must be made anew to stand where their members' counters do: new ones, those whose
// members change, and used up ones with another bound and drifted ones, as those count what they
// refused.
[[nodiscard]] std::set<QuotaId> QuotasToAlign(const TableContent &standing,
                                              const TableContent &wanted);

// Whether a user's group has used up its quota: what that refuses counts for the user's own quota, so
// that this may seem used up without being so.
[[nodiscard]] bool IsRefusedByGroup(const TableContent &standing, quint32 user);

// The elements of `standing` that `wanted` lacks, and the other way round.
struct ElementChanges
{
    Elements removed;
    Elements added;
};
[[nodiscard]] ElementChanges Changes(const Elements &standing, const Elements &wanted);
