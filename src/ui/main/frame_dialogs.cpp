#include "ui/main/frame_dialogs.h"

#include "ui/accounts/accounts.h"
#include "ui/common/help_window.h"
#include "ui/exchange/import_dialog.h"
#include "ui/exchange/new_user_dialog.h"
#include "ui/main/about_dialog.h"
#include "ui/main/splitter_frame.h"
#include "ui/options/adapter_dialog.h"
#include "ui/options/global_options_sheet.h"
#include "ui/options/login_manager.h"
#include "ui/options/options_dialog.h"
#include "ui/options/purge_dialog.h"
#include "ui/options/unmonitored_dialog.h"
#include "ui/props/properties.h"
#include "ui/reports/open_reports.h"
#include "ui/service/reconnect_dialog.h"
#include "ui/service/service_control_dialog.h"
#include "ui/wizard/setup_wizard.h"

namespace {

ControlOutcome RunServiceControl(const AppServices &services, QWidget *parent)
{
    ServiceControlDialog dialog(services.control, parent);
    dialog.exec();
    return {.serviceRunning = dialog.IsServiceRunning(), .stopped = dialog.WasStopped()};
}

ReconnectFlags RunReconnect(const AppServices &services, QWidget *parent)
{
    ReconnectDialog dialog(
        services.control,
        [&services] { return services.connection.Connect(services.prompt); },
        parent);
    dialog.exec();
    return dialog.Flags();
}

// Reads the lists of the frame anew while a window over it goes on.
std::function<void()> RefreshOf(QWidget *frame)
{
    return [frame = qobject_cast<CSplitterFrame *>(frame)] {
        if (frame != nullptr) {
            frame->Refresh();
        }
    };
}

// `open` as the frame calls it: with the services in it.
template <typename Result, typename... Arguments>
std::function<Result(Arguments...)> WithServices(const AppServices &services,
                                                 Result (*open)(const AppServices &, Arguments...))
{
    return [&services, open](Arguments... arguments) { return open(services, arguments...); };
}

} // namespace

FrameDialogs StandardDialogs(const AppServices &services)
{
    FrameDialogs dialogs;
    dialogs.userAccount = WithServices(services, OpenAccount);
    dialogs.userStatistics = WithServices(services, OpenStatistics);
    dialogs.groupAccount = WithServices(services, OpenAccount);
    dialogs.groupStatistics = WithServices(services, OpenStatistics);
    dialogs.userProperties = [&services](UserId userId, QWidget *parent) {
        OpenUserSheet(services, userId, user_page::kGeneral, parent);
    };
    dialogs.userPage = [&services](UserId userId, int page, QWidget *parent) {
        OpenUserSheet(services, userId, page, parent);
    };
    dialogs.groupPage = [&services](GroupId groupId, int page, QWidget *parent) {
        OpenGroupSheet(services, groupId, page, parent);
    };
    dialogs.groupProperties = [&services](GroupId groupId, QWidget *parent) {
        OpenGroupSheet(services, groupId, group_page::kGeneral, parent);
    };
    dialogs.userLimits = [&services](const QList<UserId> &userIds, QWidget *parent) {
        OpenAccessForUsers(services, {userIds.begin(), userIds.end()}, parent);
    };
    dialogs.purge = WithServices(services, OpenPurge);
    dialogs.importUsers = WithServices(services, OpenImport);
    dialogs.exportUsers = WithServices(services, OpenUserExport);
    dialogs.newUser = WithServices(services, OpenNewUser);
    dialogs.options = [&services](QWidget *parent) {
        OpenOptions(services, parent, RefreshOf(parent));
    };
    dialogs.globalOptions = [&services](QWidget *parent) {
        OpenGlobalOptions(services, parent, RefreshOf(parent));
    };
    dialogs.adapter = WithServices(services, OpenAdapterBinding);
    dialogs.setupWizard = WithServices(services, RunSetupWizard);
    dialogs.unmonitored = WithServices(services, OpenUnmonitored);
    dialogs.logins = WithServices(services, OpenLoginManager);
    dialogs.reports = WithServices(services, OpenReports);
    dialogs.helpTopics = [&services](QWidget *parent) { OpenHelpTopics(services.prompt, parent); };
    dialogs.about = OpenAbout;
    dialogs.serviceControl = WithServices(services, RunServiceControl);
    dialogs.reconnect = WithServices(services, RunReconnect);
    return dialogs;
}
