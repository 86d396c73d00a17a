// The menus and the toolbar of the main window, and when their commands can be used.
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class CSplitterFrame;
class QAction;
class QMenu;
class QToolBar;
struct CommandText;

class FrameMenus : public QObject
{
    Q_OBJECT

public:
    // Builds them into `frame`, whose panes exist.
    explicit FrameMenus(CSplitterFrame &frame);

    [[nodiscard]] QToolBar &Bar() const { return *bar; }

    // Brings the commands on the selection up to date once the events at hand are done with.
    void UpdateSoon();

private:
    QAction *Add(QMenu &menu, const CommandText &text, const std::function<void()> &run);
    // One of them is in force: which, UpdateChecks shows. `choose` is given the index in `texts`.
    QList<QAction *>
    AddChoices(QMenu &menu, const QStringList &texts, const std::function<void(int)> &choose);
    void MakeFileMenu();
    void MakeUserMenu();
    void HoldTargetsWhileOpen(const QMenu &menu);
    void MakeViewMenu();
    void MakeColumnsMenu(QMenu &view);
    void MakeSortMenu(QMenu &view);
    void MakeRefreshItems(QMenu &view);
    void MakeConfigureMenu();
    void MakeReportsCommand();
    void MakeHelpMenu();
    void MakeToolbar();
    void UpdateSelectionCommands();
    void UpdateAccount();
    void UpdateChecks();

    CSplitterFrame &frame;
    QToolBar *bar = nullptr;
    QTimer update;

    // On the selection of the active pane; the toolbar's own "Properties..." wants a single user.
    QAction *properties = nullptr;
    QAction *toolbarProperties = nullptr;
    QAction *account = nullptr;
    QAction *changeGroup = nullptr;
    QAction *doNotMonitor = nullptr;
    QAction *remove = nullptr;
    QAction *selectMatching = nullptr;
    bool asksForAccount = false; // the database, about the selection
    bool asksAgain = false; // it has changed since

    QAction *refresh = nullptr;
    QAction *options = nullptr;
    QAction *reports = nullptr;
    QAction *topics = nullptr;
    QList<QAction *> columnItems; // in display order
    QList<QAction *> sortItems; // by order code
    QList<QAction *> refreshItems; // by mode
};
