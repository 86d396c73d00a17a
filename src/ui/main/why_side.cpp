#include "ui/main/why_side.h"

#include "ui/common/window_memory.h"
#include "ui/main/administrator_view.h"
#include "ui/main/chosen_users.h"
#include "ui/main/command.h"
#include "ui/main/frame_status_bar.h"
#include "ui/main/splitter_frame.h"
#include "ui/main/user_blocking.h"
#include "ui/main/why_panel.h"
#include "ui/props/properties.h"

#include <QAction>
#include <QSplitter>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

const QString kShown = u"whyPanel/shown"_s;

} // namespace

WhySide::WhySide(const AppServices &appServices, CSplitterFrame &owner, QSplitter &splitter)
    : QObject(&owner)
    , services(appServices)
    , frame(owner)
    , panes(splitter)
    , panel(new WhyPanel(services, &panes))
    , chosen(new ChosenUsers(frame.Users(), this))
    , blocking(new UserBlocking(services, frame))
    , show(new QAction(tr("&Why, and until when"), this))
{
    panes.addWidget(panel);
    panes.setStretchFactor(0, 1);
    panes.setStretchFactor(1, 0);
    show->setObjectName(u"whyCommand"_s);
    show->setStatusTip(tr("Show why the chosen user may send or not, and until when"));
    show->setCheckable(true);
    show->setShortcut(Qt::Key_F8);
    connect(show, &QAction::toggled, this, &WhySide::SetShown);
    panel->hide();
    RememberParts(panes, u"whyPanel"_s);
    show->setChecked(Remembered(kShown).toBool());
    Show(show->isChecked());
    FollowLists();
    AddKeys();
}

void WhySide::SetShown(bool shown)
{
    Show(shown);
    Remember(kShown, shown);
}

// Of a panel that nobody has seen yet a width of nothing is kept, which would leave it the least that its
// words need, and so another one for each user.
void WhySide::Show(bool shown)
{
    panel->setVisible(shown);
    QList<int> widths = panes.sizes();
    const int wanted = panel->sizeHint().width();
    if (shown && widths.constLast() <= panel->minimumSizeHint().width()) {
        widths.front() += widths.constLast() - wanted;
        widths.back() = wanted;
        panes.setSizes(widths);
    }
}

void WhySide::FollowLists()
{
    connect(chosen, &ChosenUsers::Changed, panel, [this] { panel->ShowUsers(chosen->Ids()); });
    connect(&frame.Users(), &ListPane::Filled, panel, &WhyPanel::Refresh);
    connect(&services.news, &ChangeNews::Stored, panel, &WhyPanel::Refresh);
    connect(panel, &WhyPanel::CommandChosen, this, &WhySide::Run);
    connect(panel, &WhyPanel::BlockChosen, this, [this] {
        RunFor(TargetsOfPanel(), &UserBlocking::Block);
    });
    connect(panel, &WhyPanel::UnblockChosen, this, [this] {
        RunFor(TargetsOfPanel(), &UserBlocking::Unblock);
    });
    connect(blocking, &UserBlocking::Done, &frame, &CSplitterFrame::Refresh);
}

// Only where it is seen who is meant: in the users list, and in the panel that names them.
void WhySide::AddKeys()
{
    const auto add = [this](const char *name,
                            const QString &text,
                            const QKeySequence &keys,
                            QWidget *where,
                            void (UserBlocking::*run)(const QList<UserId> &)) {
        auto *action = new QAction(text, where);
        action->setObjectName(QLatin1StringView(name));
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        where->addAction(action);
        connect(action, &QAction::triggered, this, [this, where, run] {
            RunFor(where == panel ? TargetsOfPanel() : frame.Users().CommandTargets(), run);
        });
    };
    for (QWidget *where : {static_cast<QWidget *>(&frame.Users()), static_cast<QWidget *>(panel)}) {
        add("blockKey", tr("Block"), QKeySequence(u"Ctrl+B"_s), where, &UserBlocking::Block);
        add("unblockKey",
            tr("Unblock"),
            QKeySequence(u"Ctrl+Shift+B"_s),
            where,
            &UserBlocking::Unblock);
    }
    auto *undo = new QAction(tr("Undo"), &frame);
    undo->setShortcut(QKeySequence::Undo);
    frame.addAction(undo);
    connect(undo, &QAction::triggered, blocking, &UserBlocking::Undo);
}

// Those whom the panel tells of, while the list has lost the focus and deselected the first.
Targets<UserId> WhySide::TargetsOfPanel() const
{
    Targets<UserId> targets = frame.Users().CommandTargets();
    if (!targets.areAllMatching) {
        targets.ids = chosen->Ids();
    }
    return targets;
}

void WhySide::RunFor(const Targets<UserId> &targets,
                     void (UserBlocking::*run)(const QList<UserId> &))
{
    if (frame.Users().Commands().MayChange(targets)) {
        (blocking->*run)(targets.ids);
    }
}

void WhySide::OfferUndoIn(FrameStatusBar &status)
{
    connect(blocking, &UserBlocking::UndoOffered, &status, &FrameStatusBar::OfferUndo);
    connect(&status, &FrameStatusBar::UndoChosen, blocking, &UserBlocking::Undo);
}

void WhySide::Run(WhyCommand command, bool ofGroup, UserId userId, GroupId groupId)
{
    if (command == WhyCommand::Unblock && !ofGroup) {
        blocking->Unblock({userId});
        return;
    }
    if (ofGroup) {
        RunForGroup(command, groupId);
    } else {
        RunForUser(command, userId);
    }
    frame.Refresh();
}

void WhySide::RunForUser(WhyCommand command, UserId userId)
{
    const FrameDialogs &dialogs = frame.Dialogs();
    switch (command) {
    case WhyCommand::Monitor:
        dialogs.unmonitored(&frame);
        break;
    case WhyCommand::Logins:
        dialogs.logins(&frame);
        break;
    case WhyCommand::AddCredit:
        dialogs.userAccount(userId, &frame);
        break;
    case WhyCommand::Access:
    case WhyCommand::Unblock:
        dialogs.userPage(userId, user_page::kAccess, &frame);
        break;
    case WhyCommand::RaiseLimit:
        dialogs.userPage(userId, user_page::kLimits, &frame);
        break;
    case WhyCommand::Times:
        dialogs.userPage(userId, user_page::kTime, &frame);
        break;
    case WhyCommand::Protocols:
        dialogs.userPage(userId, user_page::kProtocols, &frame);
        break;
    }
}

void WhySide::RunForGroup(WhyCommand command, GroupId groupId)
{
    const FrameDialogs &dialogs = frame.Dialogs();
    if (command == WhyCommand::AddCredit) {
        dialogs.groupAccount(groupId, &frame);
    } else {
        const bool isLimit = command == WhyCommand::RaiseLimit;
        dialogs.groupPage(groupId, isLimit ? group_page::kLimits : group_page::kAccess, &frame);
    }
}
