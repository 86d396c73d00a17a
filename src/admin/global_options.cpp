#include "admin/global_options.h"

#include "admin/protocol_storage.h"
#include "config/config_store.h"

GlobalOptions LoadGlobalOptions(const ConfigStore &store)
{
    GlobalOptions options;
    options.currency = LoadCurrency(store, ConfigStore::kBufferBytes);
    options.ranges = LoadRanges(store);
    options.exclusions = LoadExclusions(store, kMaxExclusions);
    options.controlMac = store.ReadInteger(values::kControlMacGlobal) != 0;
    options.updatePeriod = store.ReadInteger(values::kTimer);
    options.domainLogon = store.ReadInteger(values::kUserviewEnabled) != 0;
    options.deinstallPassword = store.ReadText(values::kClientPwd).value_or(QString());
    options.monitorMode = store.ReadInteger(values::kMonitorProtMode);
    options.protocols = LoadProtocols();
    options.identMode = store.ReadInteger(values::kIdentModeGlobal);
    return options;
}

void SaveGlobalOptions(const GlobalOptions &options,
                       const ConfigStore &store,
                       Prompt &prompt,
                       const std::function<void()> &refreshPanes)
{
    SaveCurrency(store, options.currency);
    store.Edit(ConfigKeyId::LocalIp,
               [&options](KeyEditor &key) { SaveRanges(key, options.ranges); });
    SaveExclusions(store, options.exclusions, prompt, refreshPanes);
    store.Edit(ConfigKeyId::Base, [&options](KeyEditor &key) {
        key.WriteFlag(values::kControlMacGlobal, options.controlMac);
        key.WriteInteger(values::kTimer, options.updatePeriod);
        key.WriteFlag(values::kUserviewEnabled, options.domainLogon);
        key.WriteText(values::kClientPwd, options.deinstallPassword);
    });
    SaveProtocols(options.protocols);
    store.Edit(ConfigKeyId::Base, [&options](KeyEditor &key) {
        key.WriteInteger(values::kMonitorProtMode, options.monitorMode);
        key.WriteInteger(values::kIdentModeGlobal, options.identMode);
    });
    refreshPanes();
}
