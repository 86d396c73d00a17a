#include "ui/main/splitter_frame.h"

#include "access/group_list.h"
#include "access/user_list.h"
#include "base/painted_work.h"
#include "ui/common/icons.h"
#include "ui/main/administrator_view.h"
#include "ui/main/administrator_view_grp.h"
#include "ui/main/auto_refresh.h"
#include "ui/main/find_bar.h"
#include "ui/main/frame_menus.h"
#include "ui/main/frame_status_bar.h"
#include "ui/main/refresh_period_dialog.h"
#include "ui/main/service_watch.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSplitter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStartDelay = 2000;
constexpr int kPollPeriod = 60000;

} // namespace

CSplitterFrame::CSplitterFrame(const AppServices &appServices,
                               ServiceAtStart found,
                               FrameDialogs windows)
    : services(appServices)
    , dialogs(std::move(windows))
{
    setObjectName(u"frame"_s);
    setWindowTitle(u"Tollbrook Administrator"_s);
    setWindowIcon(IconOf(Picture::Application));
    CreatePanes();
    CreateBars(found);
    ReadSettings();
    CreateTimers();
    resize(1000, 680);
    users->setFocus();
}

CSplitterFrame::~CSplitterFrame()
{
    CloseConnections(services);
    WriteSettings();
}

void CSplitterFrame::CreatePanes()
{
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->setObjectName(u"splitter"_s);
    splitter->setChildrenCollapsible(false);
    users = new CAdministratorView(services, dialogs, splitter);
    groups = new CAdministratorViewGrp(services, dialogs, splitter);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    setCentralWidget(splitter);
    activePane = users;
    users->LoadColumns();
}

void CSplitterFrame::CreateBars(ServiceAtStart found)
{
    autoRefresh = new AutoRefresh(this);
    menus = new FrameMenus(*this);
    findBar = new FindBar(
        services.prompt, [this](const QString &text) { return users->FindUser(text); }, this);
    addToolBar(findBar);
    connect(new QShortcut(QKeySequence::Find, this),
            &QShortcut::activated,
            findBar,
            &FindBar::TakeFocus);
    status = new FrameStatusBar(this);
    setStatusBar(status);
    setContextMenuPolicy(Qt::NoContextMenu); // both bars stay
    Follow(*users, *groups);
    Follow(*groups, *users);

    service = new ServiceWatch(dialogs, this);
    connect(service, &ServiceWatch::ServiceShown, status, &FrameStatusBar::ShowService);
    connect(service, &ServiceWatch::ConnectionShown, status, &FrameStatusBar::ShowConnection);
    connect(status, &FrameStatusBar::ServiceOpened, this, [this] { service->OpenControl(this); });
    connect(status, &FrameStatusBar::ConnectionOpened, this, [this] {
        if (!service->IsConnected()) {
            service->OpenReconnect(this);
        }
    });
    service->Start(found.running, found.connected);
}

// The timers start after a moment in which the window is already up; the service poll first.
void CSplitterFrame::CreateTimers()
{
    connect(autoRefresh, &AutoRefresh::Due, this, &CSplitterFrame::Refresh);
    pollTimer.setObjectName(u"pollTimer"_s);
    connect(&pollTimer, &QTimer::timeout, this, [this] { service->Poll(services.control); });
    startDelay.setObjectName(u"startDelay"_s);
    startDelay.setSingleShot(true);
    connect(&startDelay, &QTimer::timeout, this, [this] {
        pollTimer.start(kPollPeriod);
        autoRefresh->Start();
    });
    startDelay.start(kStartDelay);
}

void CSplitterFrame::Follow(ListPane &pane, ListPane &other)
{
    connect(&pane, &ListPane::Filled, this, &CSplitterFrame::ShowCounts);
    connect(&pane, &ListPane::SelectionChanged, menus, &FrameMenus::UpdateSoon);
    connect(&pane, &ListPane::LeftByTab, &other, [&other] { other.setFocus(Qt::TabFocusReason); });
    connect(&pane, &ListPane::Focused, this, [this, &pane] {
        activePane = &pane;
        menus->UpdateSoon();
    });
}

void CSplitterFrame::FirstStart()
{
    users->FirstFill();
    groups->FillGroups();
    ShowCounts();
    const bool firstTime = services.settings.ReadInteger(values::kFirstStart) == 1;
    if (firstTime) {
        RunSetupWizard();
    } else if (!service->IsConnected()) {
        service->OpenReconnect(this);
    }
    services.settings.WriteInteger(values::kFirstStart, 0);
}

void CSplitterFrame::Refresh()
{
    if (IsWorkRunning()) {
        return; // the timer's next turn will do
    }
    groups->FillGroups();
    users->FillList(sortOrder, true);
    ShowCounts();
}

void CSplitterFrame::SortBy(int order)
{
    sortOrder = order;
    users->FillList(sortOrder, true);
    ShowCounts();
}

void CSplitterFrame::ShowCounts()
{
    status->ShowUserCount(users->RowCount());
    status->ShowNotice(users->WasRead() && groups->WasRead()
                           ? QString()
                           : u"The lists could not be read; the failed statements tell why."_s);
    // Counting a large table takes longer than reading its first rows: the rows are painted first.
    if (users->RowCount() == kUserListCapacity || groups->RowCount() == kGroupListCapacity) {
        QTimer::singleShot(0, this, &CSplitterFrame::CountBeyondLists);
    }
}

void CSplitterFrame::CountBeyondLists()
{
    if (IsWorkRunning()) {
        return;
    }
    QStringList notices;
    const auto compare =
        [&](quint32 capacity, int listed, quint32 (*count)(), const QString &what) {
            const quint32 all = static_cast<quint32>(listed) == capacity ? count() : 0;
            if (all > capacity) {
                notices << u"The first %1 of %2 %3 are listed."_s.arg(
                    QLocale().toString(capacity), QLocale().toString(all), what);
            }
        };
    compare(kUserListCapacity, users->RowCount(), CountListedUsers, u"users"_s);
    compare(kGroupListCapacity, groups->RowCount(), CountGroups, u"groups"_s);
    if (!notices.isEmpty()) {
        status->ShowNotice(notices.join(u' '));
    }
}

void CSplitterFrame::RunSetupWizard()
{
    if (dialogs.setupWizard) {
        RunAndRefresh(dialogs.setupWizard);
    }
}

void CSplitterFrame::RunAndRefresh(const FrameDialogs::ForNothing &dialog)
{
    dialog(this);
    Refresh();
}

void CSplitterFrame::ChooseCustomPeriod()
{
    RefreshPeriodDialog dialog(autoRefresh->Period(), this);
    if (dialog.exec() == QDialog::Accepted) {
        autoRefresh->ChooseCustom(dialog.Minutes());
    }
}

void CSplitterFrame::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F5) {
        Refresh();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void CSplitterFrame::ReadSettings()
{
    sortOrder = services.settings.ReadInteger(values::kSortBy);
    autoRefresh->Load(services.settings);
}

void CSplitterFrame::WriteSettings() const
{
    services.settings.WriteInteger(values::kSortBy, sortOrder);
    autoRefresh->Save(services.settings);
}
