#include "access/group_plan.h"

#include "access/stored_protocols.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GroupPlan)
};

void PlanMode(GroupPlan &plan,
              const GroupRecord &sheet,
              const GroupRecord &now,
              const Settler &settle)
{
    const AccountingMode base = sheet.base.mode;
    const AccountingMode draft = sheet.draft.mode;
    plan.mode = SettleMode(settle, base, draft, now.base.mode);
    plan.modeChanged = draft != base && plan.mode == draft;
    plan.limits = SettleLimits(settle, plan.mode, sheet.limits, now.limits.stored);
    plan.limitTouched = sheet.limits.Staged().traffic != sheet.limits.stored.traffic;
    if (!sheet.account.credits.empty()) {
        plan.credit = sheet.account.credits.front();
    }
}

} // namespace

GroupPlan PlanGroup(const GroupRecord &sheet, const GroupRecord &now, const Settler &settle)
{
    const GroupFields &base = sheet.base;
    const GroupFields &draft = sheet.draft;
    GroupPlan plan;
    plan.groupId = sheet.groupId;
    plan.name = settle(Words::tr("Name"), base.name, draft.name, now.base.name);
    plan.description =
        settle(Words::tr("Description"), base.description, draft.description, now.base.description);
    plan.blockNow = now.block.stored;
    plan.block = StepFor(sheet.block, now.block.stored, settle);
    plan.protocols = SettleProtocols(sheet.protocols, now.protocols);
    PlanMode(plan, sheet, now, settle);
    return plan;
}

std::vector<UserId>
PlanMoves(const std::vector<MovedMember> &members, GroupId target, const Settler &settle)
{
    std::vector<UserId> moved;
    for (const MovedMember &member : members) {
        const bool isFree = member.now == member.base || member.now == target;
        if (isFree
            || settle.MayOverwrite(
                Words::tr("Group of %1").arg(member.name),
                member.nowName,
                u"(user %1, group %2)"_s.arg(member.userId.value).arg(member.now.value))) {
            moved.push_back(member.userId);
        }
    }
    return moved;
}
