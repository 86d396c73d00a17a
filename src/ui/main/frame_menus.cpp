#include "ui/main/frame_menus.h"

#include "ui/common/look_lock.h"
#include "ui/main/administrator_view.h"
#include "ui/main/administrator_view_grp.h"
#include "ui/main/auto_refresh.h"
#include "ui/main/command.h"
#include "ui/main/splitter_frame.h"
#include "ui/main/why_side.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QToolBar>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Empty for a window that does not exist, so that its command is not shown.
std::function<void()> Opener(CSplitterFrame &frame, const FrameDialogs::ForNothing &dialog)
{
    return dialog ? [&frame, &dialog] { dialog(&frame); } : std::function<void()>();
}

std::function<void()> RefreshingOpener(CSplitterFrame &frame,
                                       const FrameDialogs::ForNothing &dialog)
{
    return dialog ? [&frame, &dialog] { frame.RunAndRefresh(dialog); } : std::function<void()>();
}

} // namespace

FrameMenus::FrameMenus(CSplitterFrame &owner) : QObject(&owner), frame(owner)
{
    MakeFileMenu();
    MakeUserMenu();
    MakeViewMenu();
    MakeConfigureMenu();
    MakeReportsCommand();
    MakeHelpMenu();
    MakeToolbar();
    update.setSingleShot(true);
    connect(&update, &QTimer::timeout, this, &FrameMenus::UpdateSelectionCommands);
    UpdateChecks();
    UpdateSelectionCommands();
}

QAction *FrameMenus::Add(QMenu &menu, const CommandText &text, const std::function<void()> &run)
{
    QAction *action = MakeCommand(text, run, &frame);
    menu.addAction(action);
    return action;
}

void FrameMenus::MakeFileMenu()
{
    QMenu &menu = *frame.menuBar()->addMenu(tr("&File"));
    Add(menu,
        {"purge", tr("&Purge database..."), tr("Remove accumulated records"), Picture::Purge},
        Changing(frame, RefreshingOpener(frame, frame.Dialogs().purge)));
    Add(menu,
        {"importUsers", tr("&Import..."), tr("Add and change users from a file"), Picture::Add},
        Changing(frame, RefreshingOpener(frame, frame.Dialogs().importUsers)));
    Add(menu,
        {"exportUsers",
         tr("Export &users..."),
         tr("Save all users as a file that can be imported"),
         Picture::Save},
        Opener(frame, frame.Dialogs().exportUsers));
    Add(menu,
        {"exportList",
         tr("&Export list..."),
         tr("Save all users that match as a file"),
         Picture::Save},
        [this] { frame.Users().Export(); });
    Add(menu,
        {"printList", tr("P&rint list..."), tr("Print all users that match"), Picture::Print},
        [this] { frame.Users().Print(); });
    menu.addSeparator();
    Add(menu,
        {"exit", tr("E&xit"), tr("Quit the program"), Picture::Exit, QKeySequence(u"Ctrl+Q"_s)},
        [this] { frame.close(); });
}

void FrameMenus::MakeUserMenu()
{
    QMenu &menu = *frame.menuBar()->addMenu(tr("&User"));
    const auto openProperties = [this] { frame.ActivePane().OpenProperties(); };
    Add(menu,
        {"newUser", tr("&New user..."), tr("Add a single user"), Picture::Add},
        Changing(frame, RefreshingOpener(frame, frame.Dialogs().newUser)));
    const QString propertiesPrompt = tr("Display user or group properties");
    properties = Add(menu,
                     {"properties", tr("&Properties..."), propertiesPrompt, Picture::Properties},
                     openProperties);
    toolbarProperties = MakeCommand(
        {"toolbarProperties", tr("Properties..."), propertiesPrompt, Picture::Properties},
        openProperties,
        &frame);
    account = Add(menu, {"account", tr("&Account..."), {}, Picture::Account}, [this] {
        frame.ActivePane().OpenAccount();
    });
    changeGroup = Add(menu,
                      {"changeGroup", tr("Change &group..."), {}, Picture::Group},
                      Changing(frame, [this] { frame.Users().Commands().ChangeGroup(); }));
    menu.addSeparator();
    doNotMonitor = Add(menu,
                       {"doNotMonitor",
                        tr("Do not &monitor"),
                        tr("Move to the unmonitored list"),
                        Picture::Unmonitored},
                       Changing(frame, [this] { frame.Users().Commands().StopMonitoring(); }));
    remove = Add(menu,
                 {"delete", tr("&Delete"), tr("Delete user or the group"), Picture::Delete},
                 Changing(frame, [this] { frame.ActivePane().DeleteSelected(); }));
    menu.addSeparator();
    selectMatching = Add(menu,
                         {"selectMatching",
                          tr("&Select all matching"),
                          tr("Choose all users that match, also those that are not listed"),
                          {},
                          QKeySequence(u"Ctrl+Shift+A"_s)},
                         [this] { frame.Users().ChooseAllMatching(); });
    HoldTargetsWhileOpen(menu);
}

// The menu is closed before its command begins.
void FrameMenus::HoldTargetsWhileOpen(const QMenu &menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this] {
        UpdateSelectionCommands();
        frame.ActivePane().HoldTargets();
    });
    connect(
        &menu,
        &QMenu::aboutToHide,
        this,
        [this] {
            frame.Users().ReleaseTargets();
            frame.Groups().ReleaseTargets();
        },
        Qt::QueuedConnection);
}

void FrameMenus::MakeViewMenu()
{
    QMenu &menu = *frame.menuBar()->addMenu(tr("&View"));
    MakeColumnsMenu(menu);
    MakeSortMenu(menu);
    refresh = Add(menu,
                  {"refresh", tr("Re&fresh "), tr("Read both lists anew"), Picture::Refresh},
                  [this] { frame.Refresh(); });
    menu.addSeparator();
    MakeRefreshItems(menu);
    menu.addSeparator();
    menu.addAction(&frame.Why().ShowCommand());
    connect(&menu, &QMenu::aboutToShow, this, &FrameMenus::UpdateChecks);
}

void FrameMenus::MakeColumnsMenu(QMenu &view)
{
    QMenu &menu = *view.addMenu(tr("&Columns"));
    for (const UserColumn column : kUserColumnOrder) {
        QAction *item = menu.addAction(HeaderText(column));
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [this, column] {
            frame.Users().ToggleColumn(column);
            UpdateChecks();
        });
        columnItems.append(item);
    }
}

QList<QAction *> FrameMenus::AddChoices(QMenu &menu,
                                        const QStringList &texts,
                                        const std::function<void(int)> &choose)
{
    auto *choices = new QActionGroup(&menu);
    for (int index = 0; index < texts.size(); ++index) {
        QAction *item = choices->addAction(menu.addAction(texts[index]));
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [this, index, choose] {
            choose(index);
            UpdateChecks();
        });
    }
    return choices->actions();
}

void FrameMenus::MakeSortMenu(QMenu &view)
{
    sortItems = AddChoices(*view.addMenu(tr("&Sort by")),
                           {tr("Usernames"), tr("Workstations"), tr("Full names")},
                           [this](int order) { frame.SortBy(order); });
}

void FrameMenus::MakeRefreshItems(QMenu &view)
{
    const QStringList texts {tr("No auto refresh"),
                             tr("Each minute"),
                             tr("Each 3 minutes"),
                             tr("Each 5 minutes"),
                             tr("Each 10 minutes"),
                             tr("Custom period...")};
    refreshItems = AddChoices(view, texts, [this](int mode) {
        if (mode == AutoRefresh::Custom) {
            frame.ChooseCustomPeriod();
        } else {
            frame.Refreshing().Choose(static_cast<AutoRefresh::Mode>(mode));
        }
    });
}

void FrameMenus::MakeConfigureMenu()
{
    const FrameDialogs &dialogs = frame.Dialogs();
    QMenu &menu = *frame.menuBar()->addMenu(tr("&Configure"));
    options = Add(menu,
                  {"options", tr("&Options"), tr("Options"), Picture::Options},
                  Opener(frame, dialogs.options));
    Add(menu,
        {"unmonitored",
         tr("&Unmonitored"),
         tr("Bring users back under monitoring"),
         Picture::Unmonitored},
        RefreshingOpener(frame, dialogs.unmonitored));
    Add(menu,
        {"logins", tr("&Login manager"), tr("Logins for user authentication"), Picture::Logins},
        Opener(frame, dialogs.logins));
    Add(menu,
        {"adapter",
         tr("&Network adapter"),
         tr("Select network card Tollbrook will work with"),
         Picture::Adapter},
        Opener(frame, dialogs.adapter));
    // No menu holds this one; it is there for its keys.
    frame.addAction(MakeCommand({"globalOptions",
                                 tr("Global options"),
                                 tr("Display global options"),
                                 Picture::Options,
                                 QKeySequence(u"Ctrl+Shift+O"_s)},
                                Opener(frame, dialogs.globalOptions),
                                &frame));
}

void FrameMenus::MakeReportsCommand()
{
    const auto open = Opener(frame, frame.Dialogs().reports);
    const QString prompt = tr("Choose and show a report");
    reports =
        MakeCommand({"toolbarReports", tr("Reports..."), prompt, Picture::Reports}, open, &frame);
    // A menu bar draws a picture in place of the text: this one has none.
    frame.menuBar()->addAction(MakeCommand({"reports", tr("&Reports..."), prompt}, open, &frame));
}

void FrameMenus::MakeHelpMenu()
{
    const FrameDialogs &dialogs = frame.Dialogs();
    QMenu &menu = *frame.menuBar()->addMenu(tr("&Help"));
    topics = Add(menu,
                 {"topics",
                  tr("&Help topics"),
                  tr("Open the user guide"),
                  Picture::Help,
                  QKeySequence::HelpContents},
                 Opener(frame, dialogs.helpTopics));
    Add(menu,
        {"wizard", tr("Setup &wizard..."), tr("Starts the setup wizard"), Picture::Wizard},
        Changing(frame, RefreshingOpener(frame, dialogs.setupWizard)));
    menu.addSeparator();
    Add(menu,
        {"about", tr("&About Tollbrook Administrator"), {}, Picture::About},
        Opener(frame, dialogs.about));
    menu.menuAction()->setVisible(dialogs.helpTopics || dialogs.setupWizard || dialogs.about);
}

void FrameMenus::MakeToolbar()
{
    bar = frame.addToolBar(tr("Commands"));
    bar->setObjectName(u"toolBar"_s);
    bar->setMovable(false);
    for (QAction *action : {toolbarProperties, account, remove}) {
        bar->addAction(action);
    }
    bar->addSeparator();
    bar->addAction(refresh);
    bar->addAction(reports);
    bar->addAction(options);
    bar->addSeparator();
    bar->addAction(topics);
}

void FrameMenus::UpdateSoon()
{
    update.start(0);
}

void FrameMenus::UpdateSelectionCommands()
{
    const ListPane &pane = frame.ActivePane();
    const bool isUsers = &pane == &frame.Users();
    const bool allMatching = isUsers && frame.Users().CommandTargets().areAllMatching;
    const qsizetype selected = allMatching ? 0 : pane.TargetCount();
    properties->setEnabled(selected > 0);
    toolbarProperties->setEnabled(selected == 1);
    account->setStatusTip(pane.AccountPrompt());
    account->setToolTip(pane.AccountPrompt());
    UpdateAccount();
    changeGroup->setEnabled(allMatching || (isUsers && selected > 0));
    doNotMonitor->setEnabled(isUsers && selected > 0);
    remove->setEnabled(selected > 0);
    selectMatching->setEnabled(frame.Users().MayHoldBack());
}

// One question at a time: a selection that moves on asks once more when the answer is there.
void FrameMenus::UpdateAccount()
{
    if (asksForAccount) {
        asksAgain = true;
        return;
    }
    asksForAccount = true;
    frame.ActivePane().AskForAccount(this, [this](bool has) {
        asksForAccount = false;
        account->setEnabled(has && !asksAgain);
        if (std::exchange(asksAgain, false)) {
            UpdateAccount();
        }
    });
}

void FrameMenus::UpdateChecks()
{
    for (qsizetype index = 0; index < columnItems.size(); ++index) {
        columnItems[index]->setChecked(
            frame.Users().IsColumnVisible(kUserColumnOrder[static_cast<size_t>(index)]));
    }
    for (qsizetype order = 0; order < sortItems.size(); ++order) {
        sortItems[order]->setChecked(order == frame.SortOrder());
    }
    for (qsizetype mode = 0; mode < refreshItems.size(); ++mode) {
        refreshItems[mode]->setChecked(mode == frame.Refreshing().CurrentMode());
    }
}
