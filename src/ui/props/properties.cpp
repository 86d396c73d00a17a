#include "ui/props/properties.h"

#include "access/group_apply.h"
#include "access/many_users.h"
#include "access/user_apply.h"
#include "accounts/credit.h"
#include "accounts/currency.h"
#include "app/administrator_app.h"
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
bool ApplyAccount(const Owner &owner, quint32 mode, const StagedAccount &staged)
{
    return ApplyStagedAccount(owner, mode, staged, CurrentRate(theApp->Config()), theApp->Link());
}

} // namespace

bool OpenUserSheet(quint32 userId, int page, QWidget *parent)
{
    auto record = LoadUser(userId);
    if (!record) {
        Complain(u"This user has been deleted meanwhile."_s);
        return false;
    }
    // Kept: this page belongs to the sheet and is not added to it.
    CAdministratorUserPAcc accountPage(userId, record->account);
    Sheet sheet(u"User properties"_s, parent);
    sheet.Add(new CAdministratorUserPPage(*record, &sheet));
    sheet.Add(new CAdministratorUserPAccess(*record, &sheet));
    sheet.Add(new CAdministratorUserPLimits(*record, &sheet));
    sheet.Add(new CAdministratorUserPTime(*record, &sheet));
    sheet.Add(new CAdministratorUserPProtocol(*record, &sheet));
    return sheet.Run(page) && ApplyUser(*record, theApp->Link(), theApp->Messages())
        && ApplyAccount(record->Self(), record->mode, record->account);
}

bool OpenGroupSheet(quint32 groupId, int page, QWidget *parent)
{
    auto record = LoadGroup(groupId);
    if (!record) {
        Complain(u"This group has been deleted meanwhile."_s);
        return false;
    }
    // Kept: these pages belong to the sheet and are not added to it.
    const CAdministratorGroupPTime timePage(*record);
    const CAdministratorGroupPProtocols protocolPage(*record);
    CAdministratorGroupPAcc accountPage(groupId, record->account);
    Sheet sheet(u"Group's properties"_s, parent);
    sheet.Add(new CAdministratorGroupPPage(*record, &sheet));
    sheet.Add(new CAdministratorGroupPAccess(*record, &sheet));
    sheet.Add(new CAdministratorGroupPLimits(*record, &sheet));
    return sheet.Run(page) && ApplyGroup(*record, theApp->Link(), theApp->Messages())
        && ApplyAccount(record->Self(), record->mode, record->account);
}

bool OpenAccessForUsers(std::vector<quint32> userIds, QWidget *parent)
{
    const QStringList names = NamesOfUsers(userIds);
    if (userIds.empty()) {
        Complain(u"These users have been deleted meanwhile."_s);
        return false;
    }
    ManyUsersDialog dialog(std::move(userIds), names, parent);
    return dialog.exec() == QDialog::Accepted;
}
