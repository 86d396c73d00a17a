#include "accounts/sheet_actions.h"

#include "access/group_apply.h"
#include "access/user_apply.h"
#include "accounts/credit.h"
#include "actions/action_run.h"

Action ApplyUserAction(const UserRecord &record, double rate)
{
    return {ActionId::ApplyUser, [=](ActionRun &run) {
                const OwnerModes modes {record.draft.mode, ApplyUser(run, record)};
                WriteStagedAccount(run, record.Self(), modes, record.account, rate);
            }};
}

Action ApplyGroupAction(const GroupRecord &record, double rate)
{
    return {ActionId::ApplyGroup, [=](ActionRun &run) {
                const OwnerModes modes {record.draft.mode, ApplyGroup(run, record)};
                WriteStagedAccount(run, record.Self(), modes, record.account, rate);
            }};
}
