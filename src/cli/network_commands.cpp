// The commands that begin with "range" and "exclusion": which addresses the service watches.
#include "admin/local_addresses.h"
#include "admin/save_steps.h"
#include "cli/command.h"
#include "cli/owners.h"
#include "cli/settings_work.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kRangeColumns {{"network", "Network"}, {"mask", "Subnet mask"}};
const QList<Column> kExclusionColumns {{"address", "IP address"}};

struct Network
{
    QList<AddressRange> ranges;
    QList<Ipv4> exclusions;
};

Or<Network> ReadNetwork(const Work &work)
{
    return ReadKeyToWrite(work, ConfigKeyId::LocalIp)
        .and_then([&work](const KeyReader &localIp) -> Or<Network> {
            if (const auto failure = AddressesFailure(work.Settings(), localIp)) {
                return StopWith(ExitStatus::Failed, TextOf(*failure) + u" Nothing was changed."_s);
            }
            return Network {LoadRanges(localIp), LoadExclusions(localIp, kMaxExclusions)};
        });
}

QString TextOf(const AddressRange &range)
{
    return DottedText(range.network) + u'/' + DottedText(range.mask);
}

QStringList ValuesOf(const QList<AddressRange> &ranges)
{
    QStringList texts;
    for (const AddressRange &range : ranges) {
        texts << TextOf(range);
    }
    return {u"ranges="_s + texts.join(u", "_s)};
}

QStringList ValuesOf(const QList<Ipv4> &exclusions)
{
    QStringList texts;
    for (const Ipv4 exclusion : exclusions) {
        texts << DottedText(exclusion);
    }
    return {u"exclusions="_s + texts.join(u", "_s)};
}

Or<void> ListRanges(Work &work, const Given & /*given*/)
{
    return ReadNetwork(work).map([&work](const Network &network) {
        Table table {kRangeColumns, {}};
        for (const AddressRange &range : network.ranges) {
            table.rows << Cells {DottedText(range.network), DottedText(range.mask)};
        }
        work.Print(table);
    });
}

// The mask of a number of leading bits, as "24".
std::optional<Ipv4> MaskOfPrefix(const QString &text)
{
    constexpr int kBits = 32;
    bool isNumber = false;
    const int bits = text.toInt(&isNumber);
    if (!isNumber || bits < 1 || bits > kBits) {
        return std::nullopt;
    }
    return ~Ipv4 {0} << (kBits - bits);
}

struct TypedRange
{
    std::optional<Ipv4> network;
    std::optional<Ipv4> mask;
};

// "10.1.2.0 255.255.255.0" in two words, or "10.1.2.0/24" in one.
Or<TypedRange> RangeOf(const Given &given)
{
    const QString word = given.Word(0);
    const bool hasPrefix = word.contains(u'/');
    if (hasPrefix == (given.Words().size() == 2)) {
        return WrongUse(u"Write a range as 10.1.2.0 255.255.255.0, or as 10.1.2.0/24."_s);
    }
    return hasPrefix
        ? TypedRange {Ipv4From(word.section(u'/', 0, 0)), MaskOfPrefix(word.section(u'/', 1))}
        : TypedRange {Ipv4From(word), Ipv4From(given.Word(1))};
}

Or<void> SaveRanges(Work &work, const QList<AddressRange> &base, const QList<AddressRange> &draft)
{
    const auto written = WriteSettings(work, [&](const ConfigStore &settings) {
        return settings.Edit(ConfigKeyId::LocalIp,
                             [&](KeyEditor &key) { SaveRanges(key, base, draft); });
    });
    return written.map([&] {
        PrintSettings(
            work, ConfigKeyId::LocalIp, u"localip/ranges"_s, ValuesOf(base), ValuesOf(draft));
    });
}

Or<void> AddRange(Work &work, const Given &given)
{
    const auto typed = RangeOf(given);
    const auto network = typed ? ReadNetwork(work) : tl::unexpected(typed.error());
    if (!network) {
        return tl::unexpected(network.error());
    }
    if (const auto problem = CheckRange(network->ranges, typed->network, typed->mask)) {
        return StopWith(ExitStatus::Refused, ::TextOf(*problem));
    }
    return SaveRanges(work,
                      network->ranges,
                      network->ranges + QList {AddressRange {*typed->network, *typed->mask}});
}

Or<void> RemoveRange(Work &work, const Given &given)
{
    const auto typed = RangeOf(given);
    const auto network = typed ? ReadNetwork(work) : tl::unexpected(typed.error());
    if (!network) {
        return tl::unexpected(network.error());
    }
    QList<AddressRange> left = network->ranges;
    const bool isThere = typed->network && typed->mask
        && left.removeOne(AddressRange {*typed->network, *typed->mask});
    if (!isThere) {
        return StopWith(ExitStatus::Refused,
                        u"There is no such range; \"tollbrook range list\" names them."_s);
    }
    return SaveRanges(work, network->ranges, left);
}

Or<void> ListExclusions(Work &work, const Given & /*given*/)
{
    return ReadNetwork(work).map([&work](const Network &network) {
        Table table {kExclusionColumns, {}};
        for (const Ipv4 exclusion : network.exclusions) {
            table.rows << Cells {DottedText(exclusion)};
        }
        work.Print(table);
    });
}

// Users are removed only for addresses that were written.
Stop StopOf(const SaveReport &report)
{
    const bool isAsBefore = !report.unwritten.isEmpty() && !report.isUnknown;
    return {isAsBefore ? ExitStatus::Failed : ExitStatus::Uncertain, report.InWords()};
}

// As the options windows do: who has an address that is to be excluded is asked about, and removed after
// a Yes. The work has settings of its own: where it does not come back, it outlives the command.
Or<void> SaveExclusions(Work &work, const Network &base, const QList<Ipv4> &draft)
{
    const auto settings = std::make_shared<const ConfigStore>(work.Settings().Folder());
    const auto report = work.AwaitAnswered(
        [&](const Answers &answers) {
            return [settings, base, draft, answers, isTrial = work.IsTrial()] {
                SaveSteps steps(*settings, answers);
                steps.AskOnExclusions(base.exclusions, draft);
                if (steps.MayWrite() && !isTrial) {
                    steps.SaveNetwork({base.ranges, base.ranges}, {base.exclusions, draft});
                }
                return steps.Report();
            };
        },
        [](const SaveReport &given) { return given.questions; });
    if (!report) {
        return tl::unexpected(report.error());
    }
    if (!report->IsDone()) {
        return tl::unexpected(StopOf(*report));
    }
    PrintSettings(work,
                  ConfigKeyId::LocalIp,
                  u"localip/exclusions"_s,
                  ValuesOf(base.exclusions),
                  ValuesOf(draft));
    return {};
}

Or<void> AddExclusion(Work &work, const Given &given)
{
    const auto network = ReadNetwork(work);
    if (!network) {
        return tl::unexpected(network.error());
    }
    const auto address = Ipv4From(given.Word(0));
    if (const auto problem = CheckExclusion(network->exclusions, address)) {
        return StopWith(ExitStatus::Refused, ::TextOf(*problem));
    }
    if (network->exclusions.size() >= kMaxExclusions) {
        return StopWith(ExitStatus::Refused,
                        u"No more than %1 addresses can be excluded. Nothing was changed."_s.arg(
                            kMaxExclusions));
    }
    return SaveExclusions(work, *network, network->exclusions + QList {*address});
}

Or<void> RemoveExclusion(Work &work, const Given &given)
{
    const auto network = ReadNetwork(work);
    if (!network) {
        return tl::unexpected(network.error());
    }
    const auto address = Ipv4From(given.Word(0));
    QList<Ipv4> left = network->exclusions;
    if (!address || !left.removeOne(*address)) {
        return StopWith(
            ExitStatus::Refused,
            u"The address \"%1\" is not excluded. Nothing was changed."_s.arg(given.Word(0)));
    }
    return SaveExclusions(work, *network, left);
}

} // namespace

Commands NetworkCommands()
{
    return {
        {"range list", "", "Lists the address ranges that are watched.", 0, 0, {}, ListRanges},
        {"range add", "NETWORK MASK", "Adds a range of addresses.", 1, 2, {}, AddRange},
        {"range remove", "NETWORK MASK", "Removes a range of addresses.", 1, 2, {}, RemoveRange},
        {"exclusion list", "", "Lists the addresses that are ignored.", 0, 0, {}, ListExclusions},
        {"exclusion add",
         "ADDRESS",
         "Has an address ignored; who has it may be removed, after a question.",
         1,
         1,
         {},
         AddExclusion},
        {"exclusion remove",
         "ADDRESS",
         "Has an address watched again.",
         1,
         1,
         {},
         RemoveExclusion}};
}
