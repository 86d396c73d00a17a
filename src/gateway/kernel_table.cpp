#include "gateway/kernel_table.h"

#include "gateway/packet_wait.h"
#include "gateway/read_counters.h"
#include "gateway/table_reader.h"
#include "gateway/table_rules.h"
#include "gateway/table_update.h"

#include <QRandomGenerator>

#include <algorithm>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

using namespace Qt::StringLiterals;

namespace {

// What the table's comment starts with; another layout's table is not taken over.
constexpr const char *kComment = "tollbrook, layout 1, generation ";

QByteArray CommentFor(quint64 generation)
{
    return kComment + QByteArray::number(generation);
}

std::optional<quint64> GenerationIn(const QByteArray &comment)
{
    const quint64 number = comment.mid(qstrlen(kComment)).toULongLong();
    return number != 0 && CommentFor(number) == comment ? std::optional(number) : std::nullopt;
}

GatewayFailure Lost()
{
    return {GatewayFailure::Kind::TableLost,
            u"The kernel's table was changed or removed by another program"_s};
}

constexpr quint16 kNewQuota = NFNL_SUBSYS_NFTABLES << 8 | NFT_MSG_NEWOBJ;
constexpr quint16 kNewGeneration = NFNL_SUBSYS_NFTABLES << 8 | NFT_MSG_NEWGEN;

// Not asked of many ranges, which would take long.
bool KnowsNearOnly(const NearRanges &near, const TableContent &content)
{
    const auto isNear = [&near](const Element &known) {
        return !known.address.IsIpv4()
            || std::ranges::any_of(near.compared, [&](const Ipv4Mask &range) {
                   return (known.address.ToIpv4() & range.mask) == (range.network & range.mask);
               });
    };
    return near.lookedUp.empty() && std::ranges::all_of(content[SetId::Sent], isNear);
}

// The rules for a table with this content.
TableRules RulesFor(const NetworkRules &network, const TableContent &content)
{
    TableRules rules {.network = network};
    for (const Family family : kFamilies) {
        rules.looksFrom[static_cast<size_t>(family)] = HasAny(content, SetId::From, family);
        rules.looksTo[static_cast<size_t>(family)] = HasAny(content, SetId::To, family);
    }
    rules.knowsNearOnly = KnowsNearOnly(NearRangesOf(network), content);
    return rules;
}

// Whether every known address has its counter among those read.
bool HasAll(const std::vector<AddressReading> &read, const Elements &known)
{
    return std::ranges::includes(read, known, {}, &AddressReading::address, &Element::address);
}

} // namespace

KernelTable::KernelTable(NetlinkSocket request, NetlinkSocket notifications)
    : socket(std::move(request))
    , events(std::move(notifications))
{ }

GatewayResult<std::unique_ptr<KernelTable>> KernelTable::Open()
{
    GatewayResult<NetlinkSocket> request = NetlinkSocket::Open(NETLINK_NETFILTER);
    if (!request) {
        return tl::unexpected(request.error());
    }
    const int groups[] = {NFNLGRP_NFTABLES};
    GatewayResult<NetlinkSocket> notifications = NetlinkSocket::Open(NETLINK_NETFILTER, groups);
    if (!notifications) {
        return tl::unexpected(notifications.error());
    }
    const quint16 heard[] = {kNewQuota, kNewGeneration};
    return notifications->HearOnly(heard)
        .and_then([&] { return ReadTableComment(*request); })
        .map([&](const std::optional<QByteArray> &) {
            return std::unique_ptr<KernelTable>(
                new KernelTable(std::move(*request), std::move(*notifications)));
        });
}

GatewayResult<std::optional<quint64>> KernelTable::StandingGeneration()
{
    return ReadTableComment(socket).map([](const std::optional<QByteArray> &comment) {
        return comment ? GenerationIn(*comment) : std::nullopt;
    });
}

GatewayResult<Began> KernelTable::Begin(const Policy &policy)
{
    rules.reset();
    standing.reset();
    const GatewayResult<bool> takenOver = TakeOver();
    if (!takenOver) {
        return tl::unexpected(takenOver.error());
    }
    return (*takenOver ? GatewayResult<void>() : MakeNew())
        .and_then([&] { return Update(policy); })
        .map([&] {
            waiting.tableChanged = false;
            return Began {generation, *takenOver};
        });
}

// A table whose sets cannot be completed, because they are others, is not taken over.
GatewayResult<bool> KernelTable::TakeOver()
{
    const GatewayResult<std::optional<QByteArray>> comment = ReadTableComment(socket);
    if (!comment) {
        return tl::unexpected(comment.error());
    }
    const auto number = *comment ? GenerationIn(**comment) : std::nullopt;
    if (!number || countersLost) {
        return false;
    }
    NetlinkWriter messages;
    MakeTable(messages, **comment);
    MakeChains(messages);
    const GatewayResult<void> made = socket.Commit(messages, u"Taking over the table"_s);
    if (!made && made.error().kind != GatewayFailure::Kind::Refused) {
        return tl::unexpected(made.error());
    }
    generation = *number;
    isHooked = true; // as far as anybody knows
    return made.has_value();
}

GatewayResult<void> KernelTable::MakeNew()
{
    return Remove().and_then([&] {
        do {
            generation = QRandomGenerator::system()->generate64();
        } while (generation == 0);
        countersLost = false;
        NetlinkWriter messages;
        MakeTable(messages, CommentFor(generation));
        MakeChains(messages);
        return socket.Commit(messages, u"Making the table"_s);
    });
}

GatewayResult<void> KernelTable::CheckGeneration()
{
    return ReadTableComment(socket).and_then(
        [&](const std::optional<QByteArray> &comment) -> GatewayResult<void> {
            if (generation == 0 || !comment || GenerationIn(*comment) != generation) {
                return tl::unexpected(Lost());
            }
            return {};
        });
}

GatewayResult<void> KernelTable::ReadStanding()
{
    if (standing) {
        return {};
    }
    return ReadContent(socket).map([&](TableContent content) { standing = std::move(content); });
}

GatewayResult<void> KernelTable::Apply(const Policy &policy)
{
    return CheckGeneration().and_then([&] { return Update(policy); });
}

// Again when a quota was used up between the look at it and the rise of its bound: what it has
// refused since is in it, and it must be made anew.
GatewayResult<void> KernelTable::Update(const Policy &policy)
{
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const GatewayResult<void> done =
            TakeWaitingEvents().and_then([&] { return UpdateOnce(policy); }).and_then([&] {
                return TakeWaitingEvents();
            });
        if (!done) {
            standing.reset();
            return done;
        }
        if (std::ranges::none_of(standing->quotas, &Quota::drifted, &Quotas::value_type::second)) {
            break;
        }
    }
    DropOutdatedEvents();
    return {};
}

// A quota that was used up and has been raised since is no news any more.
void KernelTable::DropOutdatedEvents()
{
    const auto drop = [&](QuotaId::Kind kind, std::vector<quint32> &used) {
        std::erase_if(used, [&](quint32 id) {
            const auto stands = standing->quotas.find({kind, id});
            return stands == standing->quotas.end() || !stands->second.depleted;
        });
    };
    drop(QuotaId::Kind::User, waiting.usedUpClients);
    drop(QuotaId::Kind::Group, waiting.usedUpGroups);
}

GatewayResult<void> KernelTable::UpdateOnce(const Policy &policy)
{
    if (const GatewayResult<void> read = ReadStanding(); !read) {
        return read;
    }
    TableContent wanted = ContentFor(policy, *standing);
    const std::set<QuotaId> align = QuotasToAlign(*standing, wanted);
    if (!align.empty() && isHooked) {
        if (const GatewayResult<void> held = Hold(align, wanted, policy.network); !held) {
            return held;
        }
    }
    const GatewayResult<Received> received = ReceivedBy(socket, align, wanted);
    if (!received) {
        return tl::unexpected(received.error());
    }
    if (const auto done = Commit(PiecesFor(*standing, wanted, *received),
                                 RulesFor(policy.network, wanted),
                                 u"Changing the table"_s);
        !done) {
        return done;
    }
    if (isHooked && RetiresAny(*standing, wanted)) {
        WaitForPacketsOnTheWay();
    }
    SetDepleted(wanted, *standing, *received);
    standing = std::move(wanted);
    isHooked = true;
    return {};
}

// The rules come last: an element that no packet is looked up for yet, or any more, does nothing.
GatewayResult<void>
KernelTable::Commit(MessagePieces pieces, const TableRules &wanted, const QString &what)
{
    if (rules == wanted) {
        return CommitPieces(socket, pieces, what);
    }
    MakeRules(pieces.emplace_back(), wanted);
    return CommitPieces(socket, pieces, what)
        .and_then([&] { return ReadRuleHandles(socket); })
        .map([&](std::vector<quint64> handles) {
            ruleHandles = std::move(handles);
            rules = wanted;
        });
}

GatewayResult<void> KernelTable::Hold(const std::set<QuotaId> &align,
                                      const TableContent &wanted,
                                      const NetworkRules &network)
{
    TableContent held = *standing;
    held[SetId::To] = HeldFor(align, *standing, wanted);
    MessagePieces pieces;
    ChangeElements(pieces, SetId::To, Changes((*standing)[SetId::To], held[SetId::To]));
    return Commit(std::move(pieces),
                  RulesFor(rules ? rules->network : network, held),
                  u"Holding packets back"_s)
        .map([&] {
            standing = std::move(held);
            WaitForPacketsOnTheWay();
        });
}

GatewayResult<Reading> KernelTable::Read()
{
    GatewayResult<Reading> reading =
        CheckGeneration().and_then([&] { return ReadCounters(socket, generation); });
    if (!reading) {
        // A set that is gone is worth a failure of its own kind only when all of the table is.
        const GatewayResult<void> still = CheckGeneration();
        return still ? reading : tl::unexpected(still.error());
    }
    if (standing && !HasAll(reading->clients, (*standing)[SetId::Sent])) {
        countersLost = true;
        return tl::unexpected(Lost());
    }
    NoteDepleted(QuotaId::Kind::User, reading->usedUpClients);
    NoteDepleted(QuotaId::Kind::Group, reading->usedUpGroups);
    std::erase_if(reading->usedUpClients,
                  [&](quint32 user) { return standing && IsRefusedByGroup(*standing, user); });
    return reading;
}

GatewayResult<std::optional<PacketMark>> KernelTable::ReadPackets()
{
    return CheckGeneration().and_then([&] { return ReadPacketMark(socket); });
}

void KernelTable::NoteDepleted(QuotaId::Kind kind, const std::vector<quint32> &ids)
{
    for (const quint32 id : ids) {
        if (standing && standing->quotas.contains({kind, id})) {
            standing->quotas[{kind, id}].depleted = true;
        }
    }
}

GatewayResult<std::vector<SentReading>> KernelTable::ReadSent()
{
    return CheckGeneration()
        .and_then([&] { return ReadSet(socket, SetId::Sent); })
        .map([](const ReadElements &read) {
            std::vector<SentReading> sent;
            sent.reserve(read.size());
            for (const ReadElement &element : read) {
                sent.push_back({element.element.address, element.bytes});
            }
            return sent;
        });
}

GatewayResult<void> KernelTable::Forget(const std::vector<NetAddress> &retired)
{
    return CheckGeneration().and_then([&] { return ReadStanding(); }).and_then([&] {
        TableContent content = *standing;
        const MessagePieces pieces = PiecesToForget(content, retired);
        standing.reset();
        return CommitPieces(socket, pieces, u"Removing retired addresses"_s).map([&] {
            standing = std::move(content);
        });
    });
}

GatewayResult<void> KernelTable::ForgetUnknown(const std::vector<NetAddress> &unknown)
{
    const std::set<NetAddress> gone(unknown.begin(), unknown.end());
    MessagePieces pieces;
    if (const GatewayResult<void> checked = CheckGeneration(); !checked) {
        return checked;
    }
    for (const SetId set : {SetId::SeenSent, SetId::SeenReceived, SetId::SeenRefused}) {
        const GatewayResult<ReadElements> read = ReadSet(socket, set);
        if (!read) {
            return tl::unexpected(read.error());
        }
        Elements removed;
        for (const ReadElement &element : *read) {
            if (gone.contains(element.element.address)) {
                removed.push_back(element.element);
            }
        }
        ChangeElements(pieces, set, {removed, {}});
    }
    return CommitPieces(socket, pieces, u"Removing unknown addresses"_s);
}

GatewayResult<void> KernelTable::Remove()
{
    generation = 0;
    isHooked = false;
    standing.reset();
    rules.reset();
    return ReadTableComment(socket).and_then(
        [&](const std::optional<QByteArray> &comment) -> GatewayResult<void> {
            if (!comment) {
                return {};
            }
            NetlinkWriter messages;
            RemoveTable(messages);
            return socket.Commit(messages, u"Removing the table"_s);
        });
}

GatewayResult<GatewayEvents> KernelTable::TakeEvents()
{
    return TakeWaitingEvents().and_then([&] { return LookForChanges(); }).map([&] {
        return std::exchange(waiting, {});
    });
}

GatewayResult<void> KernelTable::TakeWaitingEvents()
{
    const bool complete = events.TakeWaiting([&](const NetlinkMessage &message) {
        const std::optional<QuotaObject> object =
            message.type == kNewQuota ? QuotaObjectFrom(message) : std::nullopt;
        // A packet's own notification bears no number. Where the bound was raised meanwhile, it does
        // not say any more that the quota was used up, which it yet was.
        const bool isOfPacket = message.sequence == 0;
        if (object && object->mine && (object->quota.depleted || isOfPacket)) {
            NoteUsedUp(object->id, object->quota);
        }
        somethingChanged = somethingChanged || message.type == kNewGeneration;
    });
    if (complete || generation == 0) {
        return {};
    }
    somethingChanged = true;
    return ReadQuotas(socket).map([&](const Quotas &quotas) {
        for (const auto &[id, quota] : quotas) {
            if (quota.depleted) {
                NoteUsedUp(id, quota);
            }
        }
    });
}

void KernelTable::NoteUsedUp(QuotaId id, const Quota &quota)
{
    if (standing) {
        const auto stands = standing->quotas.find(id);
        if (stands == standing->quotas.end()) {
            return;
        }
        if (!quota.depleted || stands->second.bound != quota.bound) {
            stands->second.drifted = true;
            return;
        }
        stands->second.depleted = true;
        if (id.kind == QuotaId::Kind::User && IsRefusedByGroup(*standing, id.id)) {
            return;
        }
    }
    auto &used = id.kind == QuotaId::Kind::User ? waiting.usedUpClients : waiting.usedUpGroups;
    if (std::ranges::find(used, id.id) == used.end()) {
        used.push_back(id.id);
    }
}

GatewayResult<void> KernelTable::LookForChanges()
{
    if (!std::exchange(somethingChanged, false)) {
        return {};
    }
    const GatewayResult<QStringList> found = ReadFlowtables(socket);
    if (!found) {
        somethingChanged = true;
        return tl::unexpected(found.error());
    }
    for (const QString &name : *found) {
        if (!flowtables.contains(name)) {
            waiting.newFlowtables.append(name);
        }
    }
    flowtables = *found;
    if (!rules) {
        return {};
    }
    const GatewayResult<bool> isAsMade =
        CheckGeneration()
            .and_then([&] { return ReadRuleHandles(socket); })
            .map([&](const auto &handles) { return handles == ruleHandles; });
    const bool isLost = !isAsMade && isAsMade.error().kind == GatewayFailure::Kind::TableLost;
    if (!isAsMade && !isLost) {
        somethingChanged = true;
        return tl::unexpected(isAsMade.error());
    }
    waiting.tableChanged = isLost || !*isAsMade;
    return {};
}
