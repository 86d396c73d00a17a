#include "ui/main/splitter_frame.h"

#include "access/group_list.h"
#include "access/user_list.h"
#include "ui/common/icons.h"
#include "ui/common/keyboard_order.h"
#include "ui/common/look_lock.h"
#include "ui/common/window_memory.h"
#include "ui/main/administrator_view.h"
#include "ui/main/administrator_view_grp.h"
#include "ui/main/auto_refresh.h"
#include "ui/main/find_bar.h"
#include "ui/main/focus_round.h"
#include "ui/main/frame_menus.h"
#include "ui/main/frame_status_bar.h"
#include "ui/main/message_pane.h"
#include "ui/main/refresh_period_dialog.h"
#include "ui/main/service_watch.h"
#include "ui/main/why_panel.h"
#include "ui/main/why_side.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStartDelay = 2000;
constexpr int kPollPeriod = 60000;

// The panes below the line that says that nothing can be changed.
QWidget *BelowTheLine(QWidget *panes)
{
    auto *whole = new QWidget;
    auto *column = new QVBoxLayout(whole);
    column->setContentsMargins({});
    QLabel *line = OnlyLooksLine();
    line->setMargin(6);
    column->addWidget(line);
    column->addWidget(panes, 1);
    return whole;
}

} // namespace

CSplitterFrame::CSplitterFrame(const AppServices &appServices, FrameDialogs windows)
    : services(appServices)
    , dialogs(std::move(windows))
{
    setObjectName(u"frame"_s);
    setWindowTitle(tr("Tollbrook Administrator"));
    setWindowIcon(IconOf(Picture::Application));
    if (services.onlyLooks) {
        LetOnlyLook(*this);
    }
    CreatePanes();
    CreateBars();
    ReadSettings();
    CreateTimers();
    RememberSize(*this, u"main"_s, {1000, 680});
    users->setFocus();
}

CSplitterFrame::~CSplitterFrame()
{
    CloseConnections(services);
    WriteSettings();
}

void CSplitterFrame::CreatePanes()
{
    auto *panes = new QSplitter(Qt::Horizontal, this);
    panes->setObjectName(u"panes"_s);
    panes->setChildrenCollapsible(false);
    auto *splitter = new QSplitter(Qt::Vertical, panes);
    splitter->setObjectName(u"splitter"_s);
    splitter->setChildrenCollapsible(false);
    users = new CAdministratorView(services, dialogs, splitter);
    groups = new CAdministratorViewGrp(services, dialogs, splitter);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    RememberParts(*splitter, u"main"_s);
    panes->addWidget(splitter);
    setCentralWidget(services.onlyLooks ? BelowTheLine(panes) : panes);
    connect(
        groups,
        &CAdministratorViewGrp::UsersDropped,
        users,
        [this](const QList<UserId> &userIds, GroupId groupId, const QString &name) {
            users->Commands().MoveToGroup(userIds, groupId, name);
        },
        Qt::QueuedConnection); // the drag comes to its end before anything is asked
    activePane = users;
    users->LoadColumns();
    why = new WhySide(services, *this, *panes);
}

void CSplitterFrame::CreateBars()
{
    autoRefresh = new AutoRefresh(this);
    menus = new FrameMenus(*this);
    findBar = new FindBar(
        services.prompt, *users, [this] { return groups->Names(); }, this);
    addToolBar(findBar);
    connect(new QShortcut(QKeySequence::Find, this),
            &QShortcut::activated,
            findBar,
            &FindBar::TakeFocus);
    why->Panel().LeaveLetters(GiveMnemonics(*findBar, TakenLetters()));
    status = new FrameStatusBar(this);
    setStatusBar(status);
    setContextMenuPolicy(Qt::NoContextMenu); // both bars stay
    messages = new MessagePane(*status, this);
    why->OfferUndoIn(*status);
    AddFocusRound(*this,
                  {{users, [this] { users->setFocus(Qt::ShortcutFocusReason); }},
                   {groups, [this] { groups->setFocus(Qt::ShortcutFocusReason); }},
                   {findBar, [this] { findBar->TakeFocus(); }},
                   {&why->Panel(), [this] { why->Panel().TakeFocus(); }}});
    Follow(*users, *groups);
    Follow(*groups, *users);
    FollowService();
    FollowChanges();
}

QSet<QChar> CSplitterFrame::TakenLetters() const
{
    QSet<QChar> letters;
    for (const QAction *opened : menuBar()->actions()) {
        letters << MnemonicIn(opened->text());
    }
    for (const auto *button : why->Panel().findChildren<QAbstractButton *>()) {
        letters << MnemonicIn(button->text());
    }
    return letters;
}

void CSplitterFrame::FollowService()
{
    service = new ServiceWatch(dialogs, this);
    connect(service, &ServiceWatch::ServiceShown, status, &FrameStatusBar::ShowService);
    connect(service, &ServiceWatch::ConnectionShown, status, &FrameStatusBar::ShowConnection);
    connect(status, &FrameStatusBar::ServiceOpened, this, [this] { service->OpenControl(this); });
    connect(status, &FrameStatusBar::ConnectionOpened, this, [this] {
        if (!service->IsConnected()) {
            service->OpenReconnect(this);
        }
    });
}

void CSplitterFrame::FollowChanges()
{
    connect(&services.database,
            &SessionThread::ConnectionChanged,
            messages,
            &MessagePane::ShowDatabase);
    connect(status, &FrameStatusBar::Cancelled, this, [this] { services.database.Cancel(); });
    connect(&services.news, &ChangeNews::ServiceSettled, messages, &MessagePane::ShowSettled);
    connect(
        &services.news, &ChangeNews::SettingsStored, messages, &MessagePane::ShowSettingsStored);
    connect(&services.news, &ChangeNews::Stored, this, [this](bool serviceTold) {
        const auto link = services.connection.Link();
        if (serviceTold) {
            messages->ShowTold(link && link->IsTelling());
            return;
        }
        constexpr int kUsualPeriod = 60; // seconds; what the service takes for none
        const int period = services.settings.ReadInteger(values::kTimer);
        messages->ShowStored(service->IsRunning(), period > 0 ? period : kUsualPeriod);
    });
}

// The timers start after a moment in which the window is already up; the service poll first.
void CSplitterFrame::CreateTimers()
{
    connect(autoRefresh, &AutoRefresh::Due, this, &CSplitterFrame::RefreshByTimer);
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
    connect(&pane, &ListPane::ReadingChanged, this, [this] {
        messages->ShowReading(users->IsReading() || groups->IsReading());
    });
    connect(&pane, &ListPane::SelectionChanged, menus, &FrameMenus::UpdateSoon);
    connect(&pane, &ListPane::LeftByTab, &other, [&other] { other.setFocus(Qt::TabFocusReason); });
    connect(&pane, &ListPane::Focused, this, [this, &pane] {
        activePane = &pane;
        menus->UpdateSoon();
    });
}

void CSplitterFrame::FirstStart(ServiceAtStart found)
{
    service->Start(found.running, found.connected);
    users->FirstFill();
    groups->FillGroups();
    const bool firstTime = services.settings.ReadInteger(values::kFirstStart) == 1;
    if (firstTime && !services.onlyLooks) {
        RunSetupWizard();
    } else if (!service->IsConnected()) {
        service->OpenReconnect(this);
    }
    KeepThatItStarted();
}

// Another program may hold the settings for a moment: the window goes on meanwhile.
void CSplitterFrame::KeepThatItStarted()
{
    if (services.onlyLooks) {
        return;
    }
    services.database.Start(
        this,
        [&settings = services.settings] {
            return Result<SettingsResult>(settings.WriteInteger(values::kFirstStart, 0));
        },
        [this](const Result<SettingsResult> &written) {
            if (written) {
                TellUnkept(*written);
            } else {
                services.prompt.Tell(tr("It was not kept that the console has been started.")
                                         + u"\n\n"_s + written.error().InWords(),
                                     Prompt::Icon::Warning);
            }
        });
}

void CSplitterFrame::TellUnkept(const SettingsResult &result) const
{
    if (!result) {
        services.prompt.Tell(TextOf(result.error()), Prompt::Icon::Warning);
    }
}

void CSplitterFrame::Refresh()
{
    groups->FillGroups();
    users->FillList(sortOrder, true);
}

// What is at work now would only keep it waiting; the timer's next turn will do.
void CSplitterFrame::RefreshByTimer()
{
    if (!services.database.IsBusy()) {
        Refresh();
    }
}

void CSplitterFrame::SortBy(int order)
{
    sortOrder = order;
    users->FillList(sortOrder, true);
}

void CSplitterFrame::ShowCounts()
{
    if (users->WasRead() || users->RowCount() > 0) {
        status->ShowUserCount(users->RowCount());
    } else {
        status->ShowUserCountUnread();
    }
    messages->ShowLists(users->WasRead() && groups->WasRead()
                            ? QString()
                            : tr("The lists could not be read; the failed statements tell why."));
    if ((users->RowCount() == kUserListCapacity && !users->IsFiltered())
        || groups->RowCount() == kGroupListCapacity) {
        CountBeyondLists();
    }
}

// Counting a large table takes longer than reading its first rows: the rows are painted first.
void CSplitterFrame::CountBeyondLists()
{
    // Of those that a filter finds, the find bar tells.
    const bool usersFull = users->RowCount() == kUserListCapacity && !users->IsFiltered();
    const bool groupsFull = groups->RowCount() == kGroupListCapacity;
    const auto count = [usersFull, groupsFull]() -> Result<std::pair<quint32, quint32>> {
        const Result<quint32> userCount = usersFull ? CountListedUsers() : 0;
        const Result<quint32> groupCount = groupsFull ? CountGroups() : 0;
        if (!userCount || !groupCount) {
            return tl::unexpected(userCount ? groupCount.error() : userCount.error());
        }
        return std::pair {*userCount, *groupCount};
    };
    services.database.Start(this, count, [this](const Result<std::pair<quint32, quint32>> &counts) {
        QStringList notices;
        const auto compare = [&](quint32 capacity, quint32 all, const QString &what) {
            if (all > capacity) {
                notices << tr("The first %1 of %2 %3 are listed.")
                               .arg(QLocale().toString(capacity), QLocale().toString(all), what);
            }
        };
        if (counts) {
            compare(kUserListCapacity, counts->first, tr("users"));
            compare(kGroupListCapacity, counts->second, tr("groups"));
            messages->ShowLists(notices.join(u' '));
        }
    });
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
    RefreshPeriodDialog dialog(services.prompt, autoRefresh->Period(), this);
    if (dialog.exec() == QDialog::Accepted) {
        autoRefresh->ChooseCustom(dialog.Minutes());
    }
}

void CSplitterFrame::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F5) {
        services.database.Reopen();
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
    if (services.onlyLooks) {
        return;
    }
    const SettingsResult sorted = services.settings.WriteInteger(values::kSortBy, sortOrder);
    const SettingsResult refreshed = autoRefresh->Save(services.settings);
    TellUnkept(sorted ? refreshed : sorted);
}
