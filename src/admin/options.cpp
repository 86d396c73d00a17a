#include "admin/options.h"

#include "admin/local_addresses.h"
#include "admin/save_steps.h"

namespace {

constexpr qsizetype kBufferBytes = 1024;

// Nothing when it is too long to be shown; empty when it is missing.
std::optional<QString> ReadAdapter(const KeyReader &base)
{
    constexpr qsizetype kNoBound = qsizetype(1024) * 1024;
    const QString text = base.ReadText(values::kNic, kNoBound).value_or(QString());
    return text.toUtf8().size() < kBufferBytes ? std::optional(text) : std::nullopt;
}

void ReadBase(Options &options, const KeyReader &base)
{
    const auto flag = [&base](const TextValue &value) {
        return base.ReadInteger(value, kBufferBytes) != 0;
    };
    options.updatePeriod = base.ReadInteger(values::kTimer, kBufferBytes);
    options.adapter = ReadAdapter(base);
    options.identMode = base.ReadInteger(values::kIdentMode, kBufferBytes);
    options.controlMac = flag(values::kControlMac);
    options.authPort = base.ReadInteger(values::kAuthPort, kBufferBytes);
    options.authRequiredForNew = flag(values::kAuthReqNew);
    options.allowNotLogged = flag(values::kAllowNotLogged);
    options.allowNonHost = flag(values::kAllowNonHost);
    options.monitorMode = base.ReadInteger(values::kMonitorProtMode);
    ReadCurrency(options.currency, base, kBufferBytes);
}

// An adapter that is too long to be shown and was not replaced stays.
void SaveAdapter(KeyEditor &key, const Options &base, const Options &draft)
{
    if (draft.adapter) {
        WriteText(key, values::kNic, base.adapter.value_or(QString()), *draft.adapter);
    }
}

void SaveAuthentication(KeyEditor &key, const Options &base, const Options &draft)
{
    WriteInteger(key, values::kAuthPort, base.authPort, draft.authPort);
    WriteFlag(key, values::kAllowNotLogged, base.allowNotLogged, draft.allowNotLogged);
    WriteFlag(key, values::kAllowNonHost, base.allowNonHost, draft.allowNonHost);
    WriteFlag(key, values::kAuthReqNew, base.authRequiredForNew, draft.authRequiredForNew);
}

void Write(SaveSteps &steps, const ConfigStore &store, const Options &base, const Options &draft)
{
    steps.Edit(settings_names::kUpdatePeriod, ConfigKeyId::Base, [&](KeyEditor &key) {
        WriteInteger(key, values::kTimer, base.updatePeriod, draft.updatePeriod);
    });
    steps.Edit(settings_names::kAdapter, ConfigKeyId::Base, [&](KeyEditor &key) {
        SaveAdapter(key, base, draft);
    });
    steps.Edit(settings_names::kIdentification, ConfigKeyId::Base, [&](KeyEditor &key) {
        WriteInteger(key, values::kIdentMode, base.identMode, draft.identMode);
        WriteFlag(key, values::kControlMac, base.controlMac, draft.controlMac);
    });
    steps.Edit(settings_names::kAuthentication, ConfigKeyId::Base, [&](KeyEditor &key) {
        SaveAuthentication(key, base, draft);
    });
    steps.Add(settings_names::kDefaultProfile,
              SaveDefaultProfile(store, {base.profile, draft.profile}));
    steps.SaveNetwork({base.ranges, draft.ranges}, {base.exclusions, draft.exclusions});
    steps.SaveProtocols(draft.protocols);
    steps.Edit(settings_names::kMonitorMode, ConfigKeyId::Base, [&](KeyEditor &key) {
        WriteInteger(key, values::kMonitorProtMode, base.monitorMode, draft.monitorMode);
    });
    steps.Add(settings_names::kPrice, SavePrice(store, {base.currency, draft.currency}));
    steps.Add(settings_names::kCurrency, SaveCurrency(store, {base.currency, draft.currency}));
}

} // namespace

Loaded<Options> LoadOptions(const ConfigStore &store)
{
    Loaded<Options> loaded;
    Options &options = loaded.settings;
    options.adapter = QString();
    TakeGroup(store.ReadKey(ConfigKeyId::Base), loaded.failures, [&options](const KeyReader &base) {
        ReadBase(options, base);
    });
    TakeGroup(store.ReadKey(ConfigKeyId::DefProfile),
              loaded.failures,
              [&options](const KeyReader &profile) {
                  options.profile = LoadDefaultProfile(profile, kBufferBytes);
              });
    TakeGroup(ReadAddresses(store), loaded.failures, [&options](const KeyReader &localIp) {
        options.ranges = LoadRanges(localIp);
        options.exclusions = LoadExclusions(localIp, kMaxExclusions);
    });
    TakeGroup(
        store.ReadKey(ConfigKeyId::Price), loaded.failures, [&options](const KeyReader &price) {
            ReadPrice(options.currency, price, kBufferBytes);
        });
    return loaded;
}

SaveReport
SaveOptions(const Edited<Options> &edited, const ConfigStore &store, const Answers &answers)
{
    SaveSteps steps(store, answers);
    steps.AskOnExclusions(edited.base.exclusions, edited.draft.exclusions);
    steps.AskOnDenials(edited.draft.protocols);
    if (steps.MayWrite()) {
        Write(steps, store, edited.base, edited.draft);
    }
    return steps.Report();
}
