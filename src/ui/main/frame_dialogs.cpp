#include "ui/main/frame_dialogs.h"

#include "app/administrator_app.h"
#include "ui/accounts/accounts.h"
#include "ui/common/help_viewer.h"
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

ControlOutcome RunServiceControl(const CAdministratorApp &app, QWidget *parent)
{
    ServiceControlDialog dialog(app.Control(), parent);
    dialog.exec();
    return {.serviceRunning = dialog.IsServiceRunning(), .stopped = dialog.WasStopped()};
}

ReconnectFlags RunReconnect(CAdministratorApp &app, QWidget *parent)
{
    ReconnectDialog dialog(
        app.Control(), [&app] { return app.ConnectService(); }, parent);
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

} // namespace

FrameDialogs StandardDialogs(CAdministratorApp &app)
{
    FrameDialogs dialogs;
    dialogs.userAccount = OpenUserAccount;
    dialogs.userStatistics = OpenUserStatistics;
    dialogs.groupAccount = OpenGroupAccount;
    dialogs.groupStatistics = OpenGroupStatistics;
    dialogs.userProperties = [](quint32 userId, QWidget *parent) {
        OpenUserSheet(userId, user_page::kGeneral, parent);
    };
    dialogs.groupProperties = [](quint32 groupId, QWidget *parent) {
        OpenGroupSheet(groupId, group_page::kGeneral, parent);
    };
    dialogs.userLimits = [](const QList<quint32> &ids, QWidget *parent) {
        OpenAccessForUsers({ids.begin(), ids.end()}, parent);
    };
    dialogs.purge = OpenPurge;
    dialogs.options = [](QWidget *parent) { OpenOptions(parent, RefreshOf(parent)); };
    dialogs.globalOptions = [](QWidget *parent) { OpenGlobalOptions(parent, RefreshOf(parent)); };
    dialogs.adapter = OpenAdapterBinding;
    dialogs.setupWizard = RunSetupWizard;
    dialogs.unmonitored = OpenUnmonitored;
    dialogs.logins = OpenLoginManager;
    dialogs.reports = OpenReports;
    dialogs.helpTopics = [&app](QWidget *parent) { OpenHelpTopics(app.Messages(), parent); };
    dialogs.about = OpenAbout;
    dialogs.serviceControl = [&app](QWidget *parent) { return RunServiceControl(app, parent); };
    dialogs.reconnect = [&app](QWidget *parent) { return RunReconnect(app, parent); };
    return dialogs;
}
