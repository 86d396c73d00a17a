#include "ui/props/properties.h"

#include "accounts/sheet_actions.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "ui/accounts/account_page.h"
#include "ui/accounts/currency_now.h"
#include "ui/accounts/owner_notice.h"
#include "ui/common/controls.h"
#include "ui/common/heading_line.h"
#include "ui/common/sheet.h"
#include "ui/props/access_pages.h"
#include "ui/props/group_general_page.h"
#include "ui/props/limits_page.h"
#include "ui/props/many_users_dialog.h"
#include "ui/props/protocol_page.h"
#include "ui/props/time_page.h"
#include "ui/props/user_general_page.h"

#include <QCoreApplication>

#include <functional>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Properties)
};

// What a staged credit keeps as its rate. Nothing, once that was told, when the settings cannot be
// read; without a credit nobody needs them.
std::optional<double> RateFor(const AppServices &services, const StagedAccount &staged)
{
    if (staged.credits.empty()) {
        return 1.0;
    }
    const auto currency = CurrencyNow(services);
    return currency ? std::optional(currency->rate) : std::nullopt;
}

// Stores what the sheet collected, as the one action that `actionOf` makes of it.
template <typename Record>
std::function<bool()> Apply(const AppServices &services,
                            QWidget &sheet,
                            const QString &what,
                            const Record &record,
                            Action (*actionOf)(const Record &, double rate))
{
    return [&services, &sheet, what, &record, actionOf] {
        const auto rate = RateFor(services, record.account);
        return rate && Perform(services, &sheet, what, actionOf(record, *rate));
    };
}

// What the sheet edits; nothing, once that was told, when it could not be read or is not there.
template <typename Record>
std::optional<Record> Opened(const AppServices &services,
                             Result<std::optional<Record>> record,
                             const QString &unread,
                             const QString &gone)
{
    if (!record) {
        TellUnread(services, unread, record.error());
        return std::nullopt;
    }
    if (!*record) {
        Complain(services.prompt, gone);
    }
    return *std::move(record);
}

std::optional<UserRecord> ReadUser(const AppServices &services, UserId userId, QWidget *parent)
{
    return Opened(services,
                  Await(services,
                        parent,
                        Words::tr("Reading the user..."),
                        [userId] { return LoadUser(userId); }),
                  Words::tr("The user could not be read."),
                  Words::tr("This user has been deleted meanwhile."));
}

std::optional<GroupRecord> ReadGroup(const AppServices &services, GroupId groupId, QWidget *parent)
{
    return Opened(services,
                  Await(services,
                        parent,
                        Words::tr("Reading the group..."),
                        [groupId] { return LoadGroup(groupId); }),
                  Words::tr("The group could not be read."),
                  Words::tr("This group has been deleted meanwhile."));
}

} // namespace

bool OpenUserSheet(const AppServices &services, UserId userId, int page, QWidget *parent)
{
    auto record = ReadUser(services, userId, parent);
    if (!record) {
        return false;
    }
    // Kept: this page belongs to the sheet and is not added to it.
    const CAdministratorUserPAcc accountPage(services, userId, record->base.mode, record->account);
    Sheet sheet(Words::tr("User properties"), parent);
    sheet.SetHeading(OwnerHeading(record->Self(), record->base.userName, &sheet));
    sheet.Add(new CAdministratorUserPPage(services, *record, &sheet));
    sheet.Add(new CAdministratorUserPAccess(services, *record, &sheet));
    sheet.Add(new CAdministratorUserPLimits(services, *record, &sheet));
    sheet.Add(new CAdministratorUserPTime(services, *record, &sheet));
    sheet.Add(new CAdministratorUserPProtocol(*record, &sheet));
    sheet.SetApply(
        Apply(services, sheet, Words::tr("Storing the user..."), *record, ApplyUserAction));
    return sheet.Run(page);
}

bool OpenGroupSheet(const AppServices &services, GroupId groupId, int page, QWidget *parent)
{
    auto record = ReadGroup(services, groupId, parent);
    if (!record) {
        return false;
    }
    // Kept: these pages belong to the sheet and are not added to it.
    const CAdministratorGroupPTime timePage(services, *record);
    const CAdministratorGroupPProtocols protocolPage(*record);
    const CAdministratorGroupPAcc accountPage(
        services, groupId, record->base.mode, record->account);
    Sheet sheet(Words::tr("Group's properties"), parent);
    sheet.SetHeading(OwnerHeading(record->Self(), record->base.name, &sheet));
    sheet.Add(new CAdministratorGroupPPage(services, *record, &sheet));
    sheet.Add(new CAdministratorGroupPAccess(*record, &sheet));
    sheet.Add(new CAdministratorGroupPLimits(services, *record, &sheet));
    sheet.SetApply(
        Apply(services, sheet, Words::tr("Storing the group..."), *record, ApplyGroupAction));
    return sheet.Run(page);
}

bool OpenAccessForUsers(const AppServices &services,
                        const std::vector<UserId> &userIds,
                        QWidget *parent)
{
    const auto opened = Opened(services,
                               Await(services,
                                     parent,
                                     Words::tr("Reading the users..."),
                                     [userIds] { return ReadUsersAndAccess(userIds); }),
                               Words::tr("The users could not be read."),
                               Words::tr("These users have been deleted meanwhile."));
    return opened && ManyUsersDialog(services, *opened, parent).exec() == QDialog::Accepted;
}
