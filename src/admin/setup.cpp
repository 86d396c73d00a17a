#include "admin/setup.h"

#include "admin/protocol_storage.h"
#include "config/config_store.h"

namespace {

constexpr quint32 kLongestNetworkPrefix = 30;

}

NetworkSetup LoadSetup(const ConfigStore &store)
{
    NetworkSetup setup;
    setup.ranges = LoadRanges(store);
    setup.proxies = LoadExclusions(store, kMaxWizardExclusions);
    setup.usesProxy = !setup.proxies.isEmpty();
    setup.monitorMode = store.ReadInteger(values::kMonitorProtMode);
    setup.protocols = LoadWizardProtocols();
    setup.identMode = store.ReadInteger(values::kIdentModeGlobal);
    return setup;
}

void SaveSetup(const NetworkSetup &setup, const ConfigStore &store)
{
    store.Edit(ConfigKeyId::LocalIp, [&setup](KeyEditor &key) {
        SaveRanges(key, setup.ranges);
        ReplaceExclusions(key, setup.usesProxy ? setup.proxies : QList<Ipv4>());
    });
    store.WriteInteger(values::kMonitorProtMode, setup.monitorMode);
    SaveWizardProtocols(setup.protocols);
    store.WriteInteger(values::kIdentModeGlobal, setup.identMode);
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
