#include "admin/setup.h"

#include "admin/local_addresses.h"
#include "admin/save_steps.h"

namespace {

constexpr quint32 kLongestNetworkPrefix = 30;

// Without a proxy none is excluded, whatever the list shows.
QList<Ipv4> ExclusionsOf(const NetworkSetup &setup)
{
    return setup.usesProxy ? setup.proxies : QList<Ipv4>();
}

void Write(SaveSteps &steps, const NetworkSetup &base, const NetworkSetup &draft)
{
    steps.EditAddresses(settings_names::kAddresses, [&](KeyEditor &key) {
        SaveRanges(key, base.ranges, draft.ranges);
        ReplaceExclusions(key, ExclusionsOf(base), ExclusionsOf(draft));
    });
    steps.Edit(settings_names::kMonitorMode, ConfigKeyId::Base, [&](KeyEditor &key) {
        WriteInteger(key, values::kMonitorProtMode, base.monitorMode, draft.monitorMode);
    });
    steps.SaveWizardProtocols(draft.protocols);
    steps.Edit(settings_names::kIdentification, ConfigKeyId::Base, [&](KeyEditor &key) {
        WriteInteger(key, values::kIdentModeGlobal, base.identMode, draft.identMode);
    });
}

} // namespace

Loaded<NetworkSetup> LoadSetup(const ConfigStore &store)
{
    Loaded<NetworkSetup> loaded;
    NetworkSetup &setup = loaded.settings;
    TakeGroup(ReadAddresses(store), loaded.failures, [&setup](const KeyReader &localIp) {
        setup.ranges = LoadRanges(localIp);
        setup.proxies = LoadExclusions(localIp, kMaxWizardExclusions);
        setup.usesProxy = !setup.proxies.isEmpty();
    });
    TakeGroup(store.ReadKey(ConfigKeyId::Base), loaded.failures, [&setup](const KeyReader &base) {
        setup.monitorMode = base.ReadInteger(values::kMonitorProtMode);
        setup.identMode = base.ReadInteger(values::kIdentModeGlobal);
    });
    return loaded;
}

SaveReport
SaveSetup(const Edited<NetworkSetup> &edited, const ConfigStore &store, const Answers &answers)
{
    SaveSteps steps(store, answers);
    steps.AskOnDenials(edited.draft.protocols);
    if (steps.MayWrite()) {
        Write(steps, edited.base, edited.draft);
    }
    return steps.Report();
}

QList<AddressRange> SuggestedRanges(const QList<Adapter> &adapters)
{
    QList<AddressRange> ranges;
    for (const Adapter &adapter : adapters) {
        if (adapter.hidden || !adapter.address || adapter.prefixLength == 0
            || adapter.prefixLength > kLongestNetworkPrefix) {
            continue;
        }
        const Ipv4 mask = ~Ipv4 {0} << (32 - adapter.prefixLength);
        const AddressRange range {*adapter.address & mask, mask};
        if (!CheckRange(ranges, range.network, range.mask)) {
            ranges.append(range);
        }
    }
    return ranges;
}
