#include "access/user_plan.h"

#include "access/stored_protocols.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(UserPlan)
};

std::optional<GroupId>
PlanGroup(const UserRecord &sheet, const UserFields &now, const Settler &settle)
{
    const GroupId chosen = sheet.draft.groupId;
    if (chosen == sheet.base.groupId) {
        return std::nullopt;
    }
    const bool isFree = now.groupId == sheet.base.groupId || now.groupId == chosen;
    const bool moves = isFree
        || settle.MayOverwrite(
            Words::tr("Group"), now.groupName, QString::number(now.groupId.value));
    return moves ? std::optional(chosen) : std::nullopt;
}

std::optional<QString> PlanAddress(const Settler &settle,
                                   const QString &label,
                                   const QString &base,
                                   const QString &draft,
                                   const QString &now)
{
    const QString settled = settle(label, base, draft, now);
    return draft != base && settled == draft ? std::optional(draft) : std::nullopt;
}

void PlanGeneral(UserPlan &plan,
                 const UserRecord &sheet,
                 const UserFields &now,
                 const Settler &settle)
{
    const UserFields &base = sheet.base;
    const UserFields &draft = sheet.draft;
    plan.fullName = settle(Words::tr("Full name"), base.fullName, draft.fullName, now.fullName);
    plan.description =
        settle(Words::tr("Description"), base.description, draft.description, now.description);
    plan.group = PlanGroup(sheet, now, settle);
    plan.ipAddress = PlanAddress(
        settle, Words::tr("IP Address"), base.ipAddress, draft.ipAddress, now.ipAddress);
    plan.macAddress = PlanAddress(
        settle, Words::tr("MAC Address"), base.macAddress, draft.macAddress, now.macAddress);
    plan.authRequired = Settler::Flag(base.authRequired, draft.authRequired, now.authRequired);
}

void PlanMode(UserPlan &plan, const UserRecord &sheet, const UserRecord &now, const Settler &settle)
{
    const AccountingMode base = sheet.base.mode;
    const AccountingMode draft = sheet.draft.mode;
    const Limits staged = sheet.limits.Staged();
    plan.mode = SettleMode(settle, base, draft, now.base.mode);
    plan.modeChanged = draft != base && plan.mode == draft;
    plan.limits = SettleLimits(settle, plan.mode, sheet.limits, now.limits.stored);
    plan.trafficTouched = staged.traffic != sheet.limits.stored.traffic;
    plan.timeTouched = staged.time != sheet.limits.stored.time;
    plan.creditStaged = !sheet.account.credits.empty();
}

} // namespace

UserPlan PlanUser(const UserRecord &sheet, const UserRecord &now, const Settler &settle)
{
    UserPlan plan;
    plan.userId = sheet.userId;
    PlanGeneral(plan, sheet, now.base, settle);
    plan.times = PlanTimes(sheet.times, now.times.StoredGrant());
    plan.protocols = SettleProtocols(sheet.protocols, now.protocols);
    PlanMode(plan, sheet, now, settle);
    plan.blockNow = now.block.stored;
    plan.block = StepFor(sheet.block, now.block.stored, settle);
    return plan;
}
