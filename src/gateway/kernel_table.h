// The table `inet tollbrook` of the kernel: who is counted, who is refused, and how much is left. One
// object and one thread at a time; everything goes on in the kernel without it.
#pragma once

#include "gateway/netlink_socket.h"
#include "gateway/policy.h"
#include "gateway/reading.h"
#include "gateway/table_content.h"

#include <memory>
#include <set>

class KernelTable
{
public:
    // Fails without CAP_NET_ADMIN or nftables; changes nothing yet.
    [[nodiscard]] static GatewayResult<std::unique_ptr<KernelTable>> Open();

    // Of the table that stands, which Begin will take over unless its counters are not all there;
    // nothing when none of ours stands.
    [[nodiscard]] GatewayResult<std::optional<quint64>> StandingGeneration();

    // Takes over the table that stands, whose counters go on, or makes a new one with a new
    // generation, and brings it to `policy`. Also to be called when the table was changed or lost.
    [[nodiscard]] GatewayResult<Began> Begin(const Policy &policy);

    // Brings the kernel to `policy`. What an address needs is changed in one transaction; a large
    // change takes several. After a failure some of it may be done; the next Apply reads what stands.
    // Where a quota is made or its members change, their received packets are dropped for about
    // 20 ms. An address that leaves the policy is retired: nothing passes, its counters stay.
    [[nodiscard]] GatewayResult<void> Apply(const Policy &policy);

    [[nodiscard]] GatewayResult<Reading> Read();

    // Whether anything was counted since an earlier mark, without reading the counters. A mark that was
    // read before the counters is as old as they are. Nothing when the rules are not there.
    [[nodiscard]] GatewayResult<std::optional<PacketMark>> ReadPackets();

    // The sent counters alone, by address.
    [[nodiscard]] GatewayResult<std::vector<SentReading>> ReadSent();

    // Removes retired addresses with their counters. One that is somebody's again stays.
    [[nodiscard]] GatewayResult<void> Forget(const std::vector<NetAddress> &retired);

    // Removes addresses from the unknown ones. What was counted since the last reading is lost when the
    // address is still nobody's.
    [[nodiscard]] GatewayResult<void> ForgetUnknown(const std::vector<NetAddress> &unknown);

    // Removes the table: everybody passes, nothing is counted. No failure when there is none.
    [[nodiscard]] GatewayResult<void> Remove();

    // Becomes readable when TakeEvents has something to look at.
    [[nodiscard]] int EventDescriptor() const { return events.Descriptor(); }
    [[nodiscard]] GatewayResult<GatewayEvents> TakeEvents();

private:
    KernelTable(NetlinkSocket request, NetlinkSocket notifications);

    [[nodiscard]] GatewayResult<bool> TakeOver();
    [[nodiscard]] GatewayResult<void> MakeNew();
    [[nodiscard]] GatewayResult<void> CheckGeneration();
    [[nodiscard]] GatewayResult<void> ReadStanding();
    [[nodiscard]] GatewayResult<void> Update(const Policy &policy);
    [[nodiscard]] GatewayResult<void> UpdateOnce(const Policy &policy);
    [[nodiscard]] GatewayResult<void> Hold(const std::set<QuotaId> &align,
                                           const TableContent &wanted);
    void NoteDepleted(QuotaId::Kind kind, const std::vector<quint32> &ids);
    [[nodiscard]] GatewayResult<void> TakeWaitingEvents();
    void DropOutdatedEvents();
    void NoteUsedUp(QuotaId id, const Quota &quota);
    [[nodiscard]] GatewayResult<void> LookForChanges();

    NetlinkSocket socket;
    NetlinkSocket events;
    quint64 generation = 0; // 0: none yet
    std::optional<TableContent> standing; // nothing: to be read first
    std::optional<NetworkRules> network; // of the rules that stand; nothing: they must be made
    bool isHooked = false; // packets may pass the rules
    std::vector<quint64> ruleHandles; // of the rules as made
    bool countersLost = false; // some are gone that should stand: nothing can be taken over
    bool somethingChanged = true; // in the kernel's tables, by whomever
    GatewayEvents waiting;
    QStringList flowtables; // as last told
};
