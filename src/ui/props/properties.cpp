#include "ui/props/properties.h"

#include "access/group_apply.h"
#include "access/many_users.h"
#include "access/user_apply.h"
#include "accounts/credit.h"
#include "accounts/currency.h"
#include "ui/accounts/account_page.h"
#include "ui/common/controls.h"
#include "ui/common/sheet.h"
#include "ui/props/access_pages.h"
#include "ui/props/group_general_page.h"
#include "ui/props/limits_page.h"
#include "ui/props/many_users_dialog.h"
#include "ui/props/protocol_page.h"
#include "ui/props/time_page.h"
#include "ui/props/user_general_page.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// No statement runs while nothing is staged.
bool ApplyAccount(const AppServices &services,
                  const Owner &owner,
                  AccountingMode mode,
                  const StagedAccount &staged)
{
    return ApplyStagedAccount(
        owner, mode, staged, CurrentRate(services.settings), services.connection.Link());
}

} // namespace

bool OpenUserSheet(const AppServices &services, UserId userId, int page, QWidget *parent)
{
    auto record = LoadUser(userId);
    if (!record) {
        Complain(services.prompt, u"This user has been deleted meanwhile."_s);
        return false;
    }
    // Kept: this page belongs to the sheet and is not added to it.
    CAdministratorUserPAcc accountPage(services, userId, record->account);
    Sheet sheet(u"User properties"_s, parent);
    sheet.Add(new CAdministratorUserPPage(services, *record, &sheet));
    sheet.Add(new CAdministratorUserPAccess(services.prompt, *record, &sheet));
    sheet.Add(new CAdministratorUserPLimits(services, *record, &sheet));
    sheet.Add(new CAdministratorUserPTime(services.prompt, *record, &sheet));
    sheet.Add(new CAdministratorUserPProtocol(*record, &sheet));
    return sheet.Run(page) && ApplyUser(*record, services.connection.Link(), services.prompt)
        && ApplyAccount(services, record->Self(), record->mode, record->account);
}

bool OpenGroupSheet(const AppServices &services, GroupId groupId, int page, QWidget *parent)
{
    auto record = LoadGroup(groupId);
    if (!record) {
        Complain(services.prompt, u"This group has been deleted meanwhile."_s);
        return false;
    }
    // Kept: these pages belong to the sheet and are not added to it.
    const CAdministratorGroupPTime timePage(services.prompt, *record);
    const CAdministratorGroupPProtocols protocolPage(*record);
    CAdministratorGroupPAcc accountPage(services, groupId, record->account);
    Sheet sheet(u"Group's properties"_s, parent);
    sheet.Add(new CAdministratorGroupPPage(services, *record, &sheet));
    sheet.Add(new CAdministratorGroupPAccess(*record, &sheet));
    sheet.Add(new CAdministratorGroupPLimits(services, *record, &sheet));
    return sheet.Run(page) && ApplyGroup(*record, services.connection.Link(), services.prompt)
        && ApplyAccount(services, record->Self(), record->mode, record->account);
}

bool OpenAccessForUsers(const AppServices &services, std::vector<UserId> userIds, QWidget *parent)
{
    const QStringList names = NamesOfUsers(userIds);
    if (userIds.empty()) {
        Complain(services.prompt, u"These users have been deleted meanwhile."_s);
        return false;
    }
    ManyUsersDialog dialog(services, std::move(userIds), names, parent);
    return dialog.exec() == QDialog::Accepted;
}
