#include "admin/default_profile.h"

#include "base/text.h"
#include "config/config_store.h"

namespace {

std::optional<qint32>
ReadLimit(const ConfigStore &store, const TextValue &value, qsizetype bufferBytes)
{
    const auto text = store.ReadText(value, bufferBytes);
    return text ? std::optional(IntegerFrom(*text)) : std::nullopt;
}

} // namespace

DefaultProfile LoadDefaultProfile(const ConfigStore &store, qsizetype bufferBytes)
{
    DefaultProfile profile;
    profile.mode = static_cast<AccountingMode>(store.ReadInteger(values::kDefMode, bufferBytes));
    profile.trafficLimit = ReadLimit(store, values::kDefTrafficLimit, bufferBytes);
    profile.timeLimit = ReadLimit(store, values::kDefTimeLimit, bufferBytes);
    profile.period =
        static_cast<LimitPeriod>(store.ReadInteger(values::kDefAccPeriod, bufferBytes));
    profile.authRequired = store.ReadInteger(values::kDefAuthReq, bufferBytes) == 1;
    profile.blocked = store.ReadInteger(values::kDefBlocked, bufferBytes) == 1;
    return profile;
}

void SaveDefaultProfile(const ConfigStore &store, const DefaultProfile &profile)
{
    store.Edit(ConfigKeyId::DefProfile, [&profile](KeyEditor &key) {
        key.WriteInteger(values::kDefMode, static_cast<qint32>(profile.mode));
        key.WriteInteger(values::kDefTrafficLimit, profile.trafficLimit.value_or(0));
        key.WriteInteger(values::kDefTimeLimit, profile.timeLimit.value_or(0));
        key.WriteFlag(values::kDefBlocked, profile.blocked);
        key.WriteInteger(values::kDefAccPeriod, static_cast<qint32>(profile.period));
    });
}
