#include "admin/default_profile.h"

#include "base/text.h"

namespace {

std::optional<qint32>
ReadLimit(const KeyReader &profile, const TextValue &value, qsizetype bufferBytes)
{
    const auto text = profile.ReadText(value, bufferBytes);
    return text ? std::optional(IntegerFrom(*text)) : std::nullopt;
}

} // namespace

DefaultProfile LoadDefaultProfile(const KeyReader &key, qsizetype bufferBytes)
{
    DefaultProfile profile;
    profile.mode = static_cast<AccountingMode>(key.ReadInteger(values::kDefMode, bufferBytes));
    profile.trafficLimit = ReadLimit(key, values::kDefTrafficLimit, bufferBytes);
    profile.timeLimit = ReadLimit(key, values::kDefTimeLimit, bufferBytes);
    profile.period = static_cast<LimitPeriod>(key.ReadInteger(values::kDefAccPeriod, bufferBytes));
    profile.authRequired = key.ReadInteger(values::kDefAuthReq, bufferBytes) == 1;
    profile.blocked = key.ReadInteger(values::kDefBlocked, bufferBytes) == 1;
    return profile;
}

SettingsResult SaveDefaultProfile(const ConfigStore &store, const Edited<DefaultProfile> &edited)
{
    return store.Edit(ConfigKeyId::DefProfile, [&edited](KeyEditor &key) {
        const DefaultProfile &base = edited.base;
        const DefaultProfile &draft = edited.draft;
        const auto number = [](auto code) { return static_cast<qint32>(code); };
        WriteInteger(key, values::kDefMode, number(base.mode), number(draft.mode));
        WriteInteger(key,
                     values::kDefTrafficLimit,
                     base.trafficLimit.value_or(0),
                     draft.trafficLimit.value_or(0));
        WriteInteger(
            key, values::kDefTimeLimit, base.timeLimit.value_or(0), draft.timeLimit.value_or(0));
        WriteFlag(key, values::kDefBlocked, base.blocked, draft.blocked);
        WriteInteger(key, values::kDefAccPeriod, number(base.period), number(draft.period));
    });
}
