#include "admin/options.h"

#include "admin/protocol_storage.h"
#include "config/config_store.h"

namespace {

constexpr qsizetype kBufferBytes = 1024;

// Nothing when it is too long to be shown; empty when it is missing.
std::optional<QString> ReadAdapter(const ConfigStore &store)
{
    constexpr qsizetype kNoBound = qsizetype(1024) * 1024;
    const QString text = store.ReadText(values::kNic, kNoBound).value_or(QString());
    return text.toUtf8().size() < kBufferBytes ? std::optional(text) : std::nullopt;
}

bool ReadFlag(const ConfigStore &store, const TextValue &value)
{
    return store.ReadInteger(value, kBufferBytes) != 0;
}

} // namespace

Options LoadOptions(const ConfigStore &store)
{
    Options options;
    options.updatePeriod = store.ReadInteger(values::kTimer, kBufferBytes);
    options.adapter = ReadAdapter(store);
    options.identMode = store.ReadInteger(values::kIdentMode, kBufferBytes);
    options.controlMac = ReadFlag(store, values::kControlMac);
    options.authPort = store.ReadInteger(values::kAuthPort, kBufferBytes);
    options.authRequiredForNew = ReadFlag(store, values::kAuthReqNew);
    options.allowNotLogged = ReadFlag(store, values::kAllowNotLogged);
    options.allowNonHost = ReadFlag(store, values::kAllowNonHost);
    options.profile = LoadDefaultProfile(store, kBufferBytes);
    options.ranges = LoadRanges(store);
    options.exclusions = LoadExclusions(store, kMaxExclusions);
    options.protocols = LoadProtocols();
    options.monitorMode = store.ReadInteger(values::kMonitorProtMode);
    options.currency = LoadCurrency(store, kBufferBytes);
    return options;
}

void SaveOptions(const Options &options,
                 const ConfigStore &store,
                 Prompt &prompt,
                 const std::function<void()> &refreshPanes)
{
    store.WriteInteger(values::kTimer, options.updatePeriod);
    if (options.adapter) {
        store.WriteText(values::kNic, *options.adapter);
    }
    store.Edit(ConfigKeyId::Base, [&options](KeyEditor &key) {
        key.WriteInteger(values::kIdentMode, options.identMode);
        key.WriteFlag(values::kControlMac, options.controlMac);
    });
    store.Edit(ConfigKeyId::Base, [&options](KeyEditor &key) {
        key.WriteInteger(values::kAuthPort, options.authPort);
        key.WriteFlag(values::kAllowNotLogged, options.allowNotLogged);
        key.WriteFlag(values::kAllowNonHost, options.allowNonHost);
        key.WriteFlag(values::kAuthReqNew, options.authRequiredForNew);
    });
    SaveDefaultProfile(store, options.profile);
    store.Edit(ConfigKeyId::LocalIp,
               [&options](KeyEditor &key) { SaveRanges(key, options.ranges); });
    SaveExclusions(store, options.exclusions, prompt, refreshPanes);
    SaveProtocols(options.protocols);
    store.WriteInteger(values::kMonitorProtMode, options.monitorMode);
    SaveCurrency(store, options.currency);
    refreshPanes();
}
