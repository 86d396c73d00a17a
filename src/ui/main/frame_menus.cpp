#include "ui/main/frame_menus.h"

#include "ui/main/administrator_view.h"
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
    QMenu &menu = *frame.menuBar()->addMenu(u"&File"_s);
    Add(menu,
        {"purge", u"&Purge database...", u"Remove accumulated records", Picture::Purge},
        RefreshingOpener(frame, frame.Dialogs().purge));
    Add(menu,
        {"exportList", u"&Export list...", u"Save all users that match as a file", Picture::Save},
        [this] { frame.Users().Export(); });
    menu.addSeparator();
    Add(menu,
        {"exit", u"E&xit", u"Quit the program", Picture::Exit, QKeySequence(u"Ctrl+Q"_s)},
        [this] { frame.close(); });
}

void FrameMenus::MakeUserMenu()
{
    QMenu &menu = *frame.menuBar()->addMenu(u"&User"_s);
    const auto openProperties = [this] { frame.ActivePane().OpenProperties(); };
    constexpr auto kPropertiesPrompt = u"Display user or group properties";
    properties = Add(menu,
                     {"properties", u"&Properties...", kPropertiesPrompt, Picture::Properties},
                     openProperties);
    toolbarProperties =
        MakeCommand({"toolbarProperties", u"Properties...", kPropertiesPrompt, Picture::Properties},
                    openProperties,
                    &frame);
    account = Add(menu, {"account", u"&Account...", u"", Picture::Account}, [this] {
        frame.ActivePane().OpenAccount();
    });
    changeGroup = Add(menu, {"changeGroup", u"Change &group...", u"", Picture::Group}, [this] {
        frame.Users().ChangeGroup();
    });
    menu.addSeparator();
    doNotMonitor = Add(
        menu,
        {"doNotMonitor", u"Do not &monitor", u"Move to the unmonitored list", Picture::Unmonitored},
        [this] { frame.Users().StopMonitoringSelected(); });
    remove = Add(menu,
                 {"delete", u"&Delete", u"Delete user or the group", Picture::Delete},
                 [this] { frame.ActivePane().DeleteSelected(); });
    connect(&menu, &QMenu::aboutToShow, this, &FrameMenus::UpdateSelectionCommands);
}

void FrameMenus::MakeViewMenu()
{
    QMenu &menu = *frame.menuBar()->addMenu(u"&View"_s);
    MakeColumnsMenu(menu);
    MakeSortMenu(menu);
    refresh = Add(menu,
                  {"refresh", u"Re&fresh ", u"Read both lists anew", Picture::Refresh},
                  [this] { frame.Refresh(); });
    menu.addSeparator();
    MakeRefreshItems(menu);
    menu.addSeparator();
    menu.addAction(&frame.Why().ShowCommand());
    connect(&menu, &QMenu::aboutToShow, this, &FrameMenus::UpdateChecks);
}

void FrameMenus::MakeColumnsMenu(QMenu &view)
{
    QMenu &menu = *view.addMenu(u"&Columns"_s);
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
    sortItems = AddChoices(*view.addMenu(u"&Sort by"_s),
                           {u"Usernames"_s, u"Workstations"_s, u"Full names"_s},
                           [this](int order) { frame.SortBy(order); });
}

void FrameMenus::MakeRefreshItems(QMenu &view)
{
    const QStringList texts {u"No auto refresh"_s,
                             u"Each minute"_s,
                             u"Each 3 minutes"_s,
                             u"Each 5 minutes"_s,
                             u"Each 10 minutes"_s,
                             u"Custom period..."_s};
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
    QMenu &menu = *frame.menuBar()->addMenu(u"&Configure"_s);
    options = Add(menu,
                  {"options", u"&Options", u"Options", Picture::Options},
                  Opener(frame, dialogs.options));
    Add(menu,
        {"unmonitored",
         u"&Unmonitored",
         u"Bring users back under monitoring",
         Picture::Unmonitored},
        RefreshingOpener(frame, dialogs.unmonitored));
    Add(menu,
        {"logins", u"&Login manager", u"Logins for user authentication", Picture::Logins},
        Opener(frame, dialogs.logins));
    Add(menu,
        {"adapter",
         u"&Network adapter",
         u"Select network card Tollbrook will work with",
         Picture::Adapter},
        Opener(frame, dialogs.adapter));
    // No menu holds this one; it is there for its keys.
    frame.addAction(MakeCommand({"globalOptions",
                                 u"Global options",
                                 u"Display global options",
                                 Picture::Options,
                                 QKeySequence(u"Ctrl+Shift+O"_s)},
                                Opener(frame, dialogs.globalOptions),
                                &frame));
}

void FrameMenus::MakeReportsCommand()
{
    const auto open = Opener(frame, frame.Dialogs().reports);
    constexpr auto kPrompt = u"Choose and show a report";
    reports =
        MakeCommand({"toolbarReports", u"Reports...", kPrompt, Picture::Reports}, open, &frame);
    // A menu bar draws a picture in place of the text: this one has none.
    frame.menuBar()->addAction(MakeCommand({"reports", u"&Reports...", kPrompt}, open, &frame));
}

void FrameMenus::MakeHelpMenu()
{
    const FrameDialogs &dialogs = frame.Dialogs();
    QMenu &menu = *frame.menuBar()->addMenu(u"&Help"_s);
    topics = Add(menu,
                 {"topics",
                  u"&Help topics",
                  u"Open the user guide",
                  Picture::Help,
                  QKeySequence::HelpContents},
                 Opener(frame, dialogs.helpTopics));
    Add(menu,
        {"wizard", u"Setup &wizard...", u"Starts the setup wizard", Picture::Wizard},
        RefreshingOpener(frame, dialogs.setupWizard));
    menu.addSeparator();
    Add(menu,
        {"about", u"&About Tollbrook Administrator", u"", Picture::About},
        Opener(frame, dialogs.about));
    menu.menuAction()->setVisible(dialogs.helpTopics || dialogs.setupWizard || dialogs.about);
}

void FrameMenus::MakeToolbar()
{
    bar = frame.addToolBar(u"Commands"_s);
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
    const qsizetype selected = pane.SelectedRows().size();
    const bool isUsers = &pane == &frame.Users();
    properties->setEnabled(selected > 0);
    toolbarProperties->setEnabled(selected == 1);
    account->setStatusTip(pane.AccountPrompt());
    account->setToolTip(pane.AccountPrompt());
    UpdateAccount();
    changeGroup->setEnabled(isUsers && selected > 0);
    doNotMonitor->setEnabled(isUsers && selected > 0);
    remove->setEnabled(selected > 0);
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
