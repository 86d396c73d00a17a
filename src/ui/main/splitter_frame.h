// The main window: the users list above the groups list, menus, toolbar, find bar and status bar.
#pragma once

#include "startup/app_services.h"
#include "ui/main/frame_dialogs.h"

#include <QMainWindow>
#include <QSet>
#include <QTimer>

class AutoRefresh;
class CAdministratorView;
class CAdministratorViewGrp;
class FindBar;
class FrameMenus;
class FrameStatusBar;
class ListPane;
class MessagePane;
class ServiceWatch;
class WhySide;

// The accounting service as the start-up found it.
struct ServiceAtStart
{
    bool running = false;
    bool connected = false;
};

class CSplitterFrame : public QMainWindow
{
    Q_OBJECT

public:
    // The lists are still empty. `services` must outlive the frame.
    CSplitterFrame(const AppServices &services, FrameDialogs dialogs);

    // Closes the database session and the connection, then keeps the sort order and the refresh
    // choice in the store, and tells when they could not be kept.
    ~CSplitterFrame() override;

    // What is left to do once the window is shown and all is there that can be reached: the lists are
    // filled and counted, then the setup wizard or the offer to reconnect opens.
    void FirstStart(ServiceAtStart found);

    // Has both lists read anew, the users in the current order.
    void Refresh();

    // 0 user names, 1 workstations, 2 full names.
    void SortBy(int order);
    [[nodiscard]] int SortOrder() const { return sortOrder; }

    // The list that was last in use; the shared commands work on it.
    [[nodiscard]] ListPane &ActivePane() const { return *activePane; }

    [[nodiscard]] CAdministratorView &Users() const { return *users; }
    [[nodiscard]] CAdministratorViewGrp &Groups() const { return *groups; }
    [[nodiscard]] const FrameDialogs &Dialogs() const { return dialogs; }
    [[nodiscard]] AutoRefresh &Refreshing() const { return *autoRefresh; }

    [[nodiscard]] const WhySide &Why() const { return *why; }

    void RunSetupWizard();
    void ChooseCustomPeriod();

    // Runs a window that may have changed anything, and reads both lists anew.
    void RunAndRefresh(const FrameDialogs::ForNothing &dialog);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void CreatePanes();
    void CreateBars();
    // By Alt and a letter, in the menu bar and in the panel beside the lists.
    [[nodiscard]] QSet<QChar> TakenLetters() const;
    void FollowService();
    void FollowChanges();
    void CreateTimers();
    void Follow(ListPane &pane, ListPane &other);
    void ShowCounts();
    void CountBeyondLists();
    void RefreshByTimer();
    void KeepThatItStarted();
    void TellUnkept(const SettingsResult &result) const;
    void ReadSettings();
    void WriteSettings() const;

    const AppServices &services;
    FrameDialogs dialogs;
    CAdministratorView *users = nullptr;
    CAdministratorViewGrp *groups = nullptr;
    ListPane *activePane = nullptr;
    FrameStatusBar *status = nullptr;
    MessagePane *messages = nullptr;
    FindBar *findBar = nullptr;
    FrameMenus *menus = nullptr;
    ServiceWatch *service = nullptr;
    WhySide *why = nullptr; // the panel beside the lists
    AutoRefresh *autoRefresh = nullptr;
    QTimer pollTimer {this};
    QTimer startDelay {this};
    int sortOrder = 0;
};
