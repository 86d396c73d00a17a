#include "admin/global_options.h"

#include "admin/local_addresses.h"
#include "admin/save_steps.h"

namespace {

void ReadBase(GlobalOptions &options, const KeyReader &base)
{
    ReadCurrency(options.currency, base, ConfigStore::kBufferBytes);
    options.controlMac = base.ReadInteger(values::kControlMacGlobal) != 0;
    options.updatePeriod = base.ReadInteger(values::kTimer);
    options.domainLogon = base.ReadInteger(values::kUserviewEnabled) != 0;
    options.deinstallPassword = base.ReadText(values::kClientPwd).value_or(QString());
    options.monitorMode = base.ReadInteger(values::kMonitorProtMode);
    options.identMode = base.ReadInteger(values::kIdentModeGlobal);
}

void Write(SaveSteps &steps,
           const ConfigStore &store,
           const GlobalOptions &base,
           const GlobalOptions &draft)
{
    steps.Add(settings_names::kPrice, SavePrice(store, {base.currency, draft.currency}));
    steps.Add(settings_names::kCurrency, SaveCurrency(store, {base.currency, draft.currency}));
    steps.SaveNetwork({base.ranges, draft.ranges}, {base.exclusions, draft.exclusions});
    steps.Edit(settings_names::kWorkstations, ConfigKeyId::Base, [&](KeyEditor &key) {
        WriteFlag(key, values::kControlMacGlobal, base.controlMac, draft.controlMac);
        WriteInteger(key, values::kTimer, base.updatePeriod, draft.updatePeriod);
        WriteFlag(key, values::kUserviewEnabled, base.domainLogon, draft.domainLogon);
        WriteText(key, values::kClientPwd, base.deinstallPassword, draft.deinstallPassword);
    });
    steps.SaveProtocols(draft.protocols);
    steps.Edit(
        settings_names::kMonitorModeAndIdentification, ConfigKeyId::Base, [&](KeyEditor &key) {
            WriteInteger(key, values::kMonitorProtMode, base.monitorMode, draft.monitorMode);
            WriteInteger(key, values::kIdentModeGlobal, base.identMode, draft.identMode);
        });
}

} // namespace

Loaded<GlobalOptions> LoadGlobalOptions(const ConfigStore &store)
{
    Loaded<GlobalOptions> loaded;
    GlobalOptions &options = loaded.settings;
    TakeGroup(store.ReadKey(ConfigKeyId::Base), loaded.failures, [&options](const KeyReader &base) {
        ReadBase(options, base);
    });
    TakeGroup(
        store.ReadKey(ConfigKeyId::Price), loaded.failures, [&options](const KeyReader &price) {
            ReadPrice(options.currency, price, ConfigStore::kBufferBytes);
        });
    TakeGroup(ReadAddresses(store), loaded.failures, [&options](const KeyReader &localIp) {
        options.ranges = LoadRanges(localIp);
        options.exclusions = LoadExclusions(localIp, kMaxExclusions);
    });
    return loaded;
}

SaveReport SaveGlobalOptions(const Edited<GlobalOptions> &edited,
                             const ConfigStore &store,
                             const Answers &answers)
{
    SaveSteps steps(store, answers);
    steps.AskOnExclusions(edited.base.exclusions, edited.draft.exclusions);
    steps.AskOnDenials(edited.draft.protocols);
    if (steps.MayWrite()) {
        Write(steps, store, edited.base, edited.draft);
    }
    return steps.Report();
}
