#include "gateway/table_reader.h"

#include <algorithm>
#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kHeader = sizeof(nfgenmsg);

constexpr quint16 TypeOf(int message)
{
    return static_cast<quint16>(NFNL_SUBSYS_NFTABLES << 8 | message);
}

NetlinkWriter DumpRequest(int message, quint8 family = NFPROTO_INET)
{
    NetlinkWriter request;
    request.Begin(TypeOf(message), NLM_F_DUMP, family);
    return request;
}

bool IsOurs(const NetlinkMessage &message, const NetlinkAttributes &attributes, quint16 tableName)
{
    return !message.body.empty() && message.body.front() == NFPROTO_INET
        && attributes.Text(tableName) == kTableName;
}

// The text of a table's user data as the nft program writes it: kind, length, text with its zero.
QByteArray CommentIn(const std::optional<NetlinkView> &data)
{
    if (!data || data->size() < 3 || data->front() != 0) {
        return {};
    }
    const NetlinkView text = data->subspan(2);
    return {reinterpret_cast<const char *>(text.data()), static_cast<qsizetype>(text.size() - 1)};
}

bool TakeElements(const NetlinkMessage &message, SetId set, Family family, ReadElements &read)
{
    const auto attributes = message.Attributes(kHeader);
    if (!attributes) {
        return false;
    }
    auto list = attributes->Bytes(NFTA_SET_ELEM_LIST_ELEMENTS).value_or(NetlinkView());
    while (!list.empty()) {
        const auto listed = TakeListed(list);
        const auto element = listed ? ReadElementFrom(*listed, set, family) : std::nullopt;
        if (!element) {
            return false;
        }
        // An IPv4 address that came mapped in a packet of IPv6 is none that anybody has.
        if (FamilyOf(element->element.address) == family) {
            read.push_back(*element);
        }
    }
    return true;
}

GatewayResult<ReadElements> ReadFamily(NetlinkSocket &socket, SetId set, Family family)
{
    const QByteArray name = NameOf(set, family);
    NetlinkWriter request = DumpRequest(NFT_MSG_GETSETELEM);
    request.PutText(NFTA_SET_ELEM_LIST_TABLE, kTableName);
    request.PutText(NFTA_SET_ELEM_LIST_SET, name);
    request.End();
    ReadElements read;
    return socket
        .Dump(
            request,
            [&] { read.clear(); },
            [&](const NetlinkMessage &message) { return TakeElements(message, set, family, read); },
            u"Reading the set "_s + QString::fromLatin1(name))
        .map([&] { return std::move(read); });
}

// A dump during which the kernel makes room for more elements may name one twice: the later of its
// counters is the larger one.
void Sort(ReadElements &elements)
{
    std::ranges::sort(elements, [](const ReadElement &a, const ReadElement &b) {
        return std::tie(a.element, b.bytes) < std::tie(b.element, a.bytes);
    });
    const auto isSame = [](const ReadElement &a, const ReadElement &b) {
        return a.element == b.element;
    };
    elements.erase(std::unique(elements.begin(), elements.end(), isSame), elements.end());
}

// Of a rule that begins with a counter.
std::optional<PacketMark> PacketMarkIn(const NetlinkAttributes &rule)
{
    const auto handle = rule.U64(NFTA_RULE_HANDLE);
    auto expressions = rule.Bytes(NFTA_RULE_EXPRESSIONS);
    const auto first = expressions ? TakeListed(*expressions) : std::nullopt;
    const auto counter = first ? NetlinkAttributes::From(*first) : std::nullopt;
    if (!handle || !counter || counter->Text(NFTA_EXPR_NAME) != "counter") {
        return std::nullopt;
    }
    const auto data = counter->Nest(NFTA_EXPR_DATA);
    const auto packets = data ? data->U64(NFTA_COUNTER_PACKETS) : std::nullopt;
    return packets ? std::optional(PacketMark {*handle, *packets}) : std::nullopt;
}

} // namespace

GatewayResult<std::optional<QByteArray>> ReadTableComment(NetlinkSocket &socket)
{
    NetlinkWriter request = DumpRequest(NFT_MSG_GETTABLE);
    request.End();
    std::optional<QByteArray> comment;
    return socket
        .Dump(
            request,
            [&] { comment.reset(); },
            [&](const NetlinkMessage &message) {
                const auto attributes = message.Attributes(kHeader);
                if (attributes && IsOurs(message, *attributes, NFTA_TABLE_NAME)) {
                    comment = CommentIn(attributes->Bytes(NFTA_TABLE_USERDATA));
                }
                return attributes.has_value();
            },
            u"Looking for the table"_s)
        .map([&] { return comment; });
}

GatewayResult<ReadElements> ReadSet(NetlinkSocket &socket, SetId set)
{
    ReadElements all;
    for (const Family family : kFamilies) {
        GatewayResult<ReadElements> read = ReadFamily(socket, set, family);
        if (!read) {
            return read;
        }
        all.insert(all.end(), read->begin(), read->end());
    }
    Sort(all);
    return all;
}

std::optional<QuotaObject> QuotaObjectFrom(const NetlinkMessage &message)
{
    const auto attributes = message.Attributes(kHeader);
    if (!attributes) {
        return std::nullopt;
    }
    // The notification of a quota that is used up bears the family of the packet, not the table's.
    if (attributes->Text(NFTA_OBJ_TABLE) != kTableName
        || attributes->U32(NFTA_OBJ_TYPE) != quint32 {NFT_OBJECT_QUOTA}) {
        return QuotaObject {};
    }
    const auto name = attributes->Text(NFTA_OBJ_NAME);
    const auto id = name ? QuotaFrom(*name) : std::nullopt;
    const auto data = attributes->Nest(NFTA_OBJ_DATA);
    const auto bound = data ? data->U64(NFTA_QUOTA_BYTES) : std::nullopt;
    const auto flags = data ? data->U32(NFTA_QUOTA_FLAGS) : std::nullopt;
    if (!name || !bound || !flags) {
        return std::nullopt;
    }
    return QuotaObject {
        .mine = id.has_value(),
        .id = id.value_or(QuotaId()),
        .quota = {.bound = *bound, .depleted = (*flags & NFT_QUOTA_F_DEPLETED) != 0}};
}

GatewayResult<Quotas> ReadQuotas(NetlinkSocket &socket)
{
    NetlinkWriter request = DumpRequest(NFT_MSG_GETOBJ);
    request.PutText(NFTA_OBJ_TABLE, kTableName);
    request.PutU32(NFTA_OBJ_TYPE, NFT_OBJECT_QUOTA);
    request.End();
    Quotas quotas;
    return socket
        .Dump(
            request,
            [&] { quotas.clear(); },
            [&](const NetlinkMessage &message) {
                const std::optional<QuotaObject> object = QuotaObjectFrom(message);
                if (object && object->mine) {
                    quotas[object->id] = object->quota;
                }
                return object.has_value();
            },
            u"Reading the quotas"_s)
        .map([&] { return std::move(quotas); });
}

GatewayResult<TableContent> ReadContent(NetlinkSocket &socket)
{
    TableContent content;
    for (int number = 0; number <= static_cast<int>(SetId::Refused); ++number) {
        const auto set = static_cast<SetId>(number);
        const GatewayResult<ReadElements> read = ReadSet(socket, set);
        if (!read) {
            return tl::unexpected(read.error());
        }
        for (const ReadElement &element : *read) {
            content[set].push_back(element.element);
        }
    }
    GatewayResult<Quotas> quotas = ReadQuotas(socket);
    if (!quotas) {
        return tl::unexpected(quotas.error());
    }
    content.quotas = std::move(*quotas);
    content[SetId::Received].clear();
    return content;
}

GatewayResult<std::vector<quint64>> ReadRuleHandles(NetlinkSocket &socket)
{
    NetlinkWriter request = DumpRequest(NFT_MSG_GETRULE);
    request.PutText(NFTA_RULE_TABLE, kTableName);
    request.End();
    std::vector<quint64> handles;
    return socket
        .Dump(
            request,
            [&] { handles.clear(); },
            [&](const NetlinkMessage &message) {
                const auto attributes = message.Attributes(kHeader);
                const auto handle = attributes ? attributes->U64(NFTA_RULE_HANDLE) : std::nullopt;
                if (handle && IsOurs(message, *attributes, NFTA_RULE_TABLE)) {
                    handles.push_back(*handle);
                }
                return handle.has_value();
            },
            u"Reading the rules"_s)
        .map([&] { return std::move(handles); });
}

GatewayResult<std::optional<PacketMark>> ReadPacketMark(NetlinkSocket &socket)
{
    NetlinkWriter request = DumpRequest(NFT_MSG_GETRULE);
    request.PutText(NFTA_RULE_TABLE, kTableName);
    request.PutText(NFTA_RULE_CHAIN, kForwardChain);
    request.End();
    std::optional<PacketMark> mark;
    return socket
        .Dump(
            request,
            [&] { mark.reset(); },
            [&](const NetlinkMessage &message) {
                const auto attributes = message.Attributes(kHeader);
                if (attributes && !mark && IsOurs(message, *attributes, NFTA_RULE_TABLE)
                    && attributes->Text(NFTA_RULE_CHAIN) == kForwardChain) {
                    mark = PacketMarkIn(*attributes);
                }
                return attributes.has_value();
            },
            u"Reading how many packets came"_s)
        .map([&] { return mark; });
}

GatewayResult<QStringList> ReadFlowtables(NetlinkSocket &socket)
{
    NetlinkWriter request = DumpRequest(NFT_MSG_GETFLOWTABLE, NFPROTO_UNSPEC);
    request.End();
    QStringList names;
    return socket
        .Dump(
            request,
            [&] { names.clear(); },
            [&](const NetlinkMessage &message) {
                const auto attributes = message.Attributes(kHeader);
                const auto table =
                    attributes ? attributes->Text(NFTA_FLOWTABLE_TABLE) : std::nullopt;
                const auto name = attributes ? attributes->Text(NFTA_FLOWTABLE_NAME) : std::nullopt;
                if (table && name) {
                    names.append(QString::fromUtf8(*table) + u' ' + QString::fromUtf8(*name));
                }
                return table && name;
            },
            u"Looking for flowtables"_s)
        .map([&] { return std::move(names); });
}
