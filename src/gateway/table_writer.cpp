#include "gateway/table_writer.h"

#include <algorithm>
#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

namespace {

constexpr size_t kPieceElements = 400;
constexpr size_t kFullMessage = 30000; // an attribute ends below 64 KiB

void Start(NetlinkWriter &writer, int message, int flags)
{
    writer.Begin(static_cast<quint16>(NFNL_SUBSYS_NFTABLES << 8 | message),
                 static_cast<quint16>(flags),
                 NFPROTO_INET);
}

void PutElements(
    NetlinkWriter &writer, SetId set, Family family, std::span<const Element> elements, bool add)
{
    for (auto next = elements.begin(); next != elements.end();) {
        Start(writer, add ? NFT_MSG_NEWSETELEM : NFT_MSG_DELSETELEM, add ? NLM_F_CREATE : 0);
        writer.PutText(NFTA_SET_ELEM_LIST_TABLE, kTableName);
        writer.PutText(NFTA_SET_ELEM_LIST_SET, NameOf(set, family));
        const size_t list = writer.Nest(NFTA_SET_ELEM_LIST_ELEMENTS);
        for (; next != elements.end() && writer.MessageSize() < kFullMessage; ++next) {
            PutElement(writer, set, *next, add);
        }
        writer.EndNest(list);
        writer.End();
    }
}

void PutOfBothFamilies(NetlinkWriter &writer,
                       SetId set,
                       std::span<const Element> elements,
                       bool add)
{
    Elements families[kFamilies.size()];
    for (const Element &element : elements) {
        families[static_cast<size_t>(FamilyOf(element.address))].push_back(element);
    }
    for (const Family family : kFamilies) {
        const Elements &ours = families[static_cast<size_t>(family)];
        PutElements(writer, set, family, ours, add);
        if (set == SetId::Sent) {
            PutElements(writer, SetId::Received, family, ours, add);
        }
    }
}

// Where the elements of `address` end, from `at` on.
size_t EndOf(const Elements &elements, size_t at, const NetAddress &address)
{
    while (at < elements.size() && elements[at].address == address) {
        ++at;
    }
    return at;
}

} // namespace

void ChangeElements(MessagePieces &pieces, SetId set, const ElementChanges &changes)
{
    const auto &[removed, added] = changes;
    size_t removedTo = 0;
    size_t addedTo = 0;
    while (removedTo < removed.size() || addedTo < added.size()) {
        const size_t removedFrom = removedTo;
        const size_t addedFrom = addedTo;
        while ((removedTo < removed.size() || addedTo < added.size())
               && removedTo - removedFrom + addedTo - addedFrom < kPieceElements) {
            const bool fromRemoved = addedTo == added.size()
                || (removedTo < removed.size()
                    && removed[removedTo].address < added[addedTo].address);
            const NetAddress address =
                fromRemoved ? removed[removedTo].address : added[addedTo].address;
            removedTo = EndOf(removed, removedTo, address);
            addedTo = EndOf(added, addedTo, address);
        }
        NetlinkWriter &piece = pieces.emplace_back();
        PutOfBothFamilies(
            piece, set, std::span(removed).subspan(removedFrom, removedTo - removedFrom), false);
        PutOfBothFamilies(
            piece, set, std::span(added).subspan(addedFrom, addedTo - addedFrom), true);
    }
}

void PutQuota(NetlinkWriter &writer, QuotaId id, quint64 bound, std::optional<quint64> consumed)
{
    Start(writer, NFT_MSG_NEWOBJ, NLM_F_CREATE);
    writer.PutText(NFTA_OBJ_TABLE, kTableName);
    writer.PutText(NFTA_OBJ_NAME, NameOf(id));
    writer.PutU32(NFTA_OBJ_TYPE, NFT_OBJECT_QUOTA);
    const size_t data = writer.Nest(NFTA_OBJ_DATA);
    writer.PutU64(NFTA_QUOTA_BYTES, bound);
    writer.PutU32(NFTA_QUOTA_FLAGS, NFT_QUOTA_F_INV);
    if (consumed) {
        // The kernel takes no more than the bound; that much refuses the next packet just as well.
        writer.PutU64(NFTA_QUOTA_CONSUMED, std::min(*consumed, bound));
    }
    writer.EndNest(data);
    writer.End();
}

void RemoveQuota(NetlinkWriter &writer, QuotaId id)
{
    Start(writer, NFT_MSG_DELOBJ, 0);
    writer.PutText(NFTA_OBJ_TABLE, kTableName);
    writer.PutText(NFTA_OBJ_NAME, NameOf(id));
    writer.PutU32(NFTA_OBJ_TYPE, NFT_OBJECT_QUOTA);
    writer.End();
}

void RemoveTable(NetlinkWriter &writer)
{
    Start(writer, NFT_MSG_DELTABLE, 0);
    writer.PutText(NFTA_TABLE_NAME, kTableName);
    writer.End();
}

GatewayResult<void>
CommitPieces(NetlinkSocket &socket, const MessagePieces &pieces, const QString &what)
{
    NetlinkWriter batch;
    for (const NetlinkWriter &piece : pieces) {
        if (!batch.IsEmpty()
            && batch.Bytes().size() + piece.Bytes().size() > socket.LargestBatch()) {
            if (GatewayResult<void> done = socket.Commit(batch, what); !done) {
                return done;
            }
            batch = NetlinkWriter();
        }
        if (!piece.IsEmpty()) {
            batch.Append(piece);
        }
    }
    return batch.IsEmpty() ? GatewayResult<void>() : socket.Commit(batch, what);
}
