// The panel beside the lists with everything that belongs to it: whom it tells of, its commands and
// their keys, the View menu's entry, and that it is kept, with its width, from one run to the next.
#pragma once

#include "app/why_access.h"
#include "ui/main/id_list_pane.h"

#include <QObject>

class CSplitterFrame;
class ChosenUsers;
class FrameStatusBar;
class QAction;
class QSplitter;
class UserBlocking;
class WhyPanel;

class WhySide : public QObject
{
    Q_OBJECT

public:
    // `panes` holds the lists and takes the panel as its last pane.
    WhySide(const AppServices &services, CSplitterFrame &frame, QSplitter &panes);

    [[nodiscard]] QAction &ShowCommand() const { return *show; }
    [[nodiscard]] WhyPanel &Panel() const { return *panel; }

    // Lets `status` offer the undo of "Block" and "Unblock".
    void OfferUndoIn(FrameStatusBar &status);

private:
    void FollowLists();
    void AddKeys();
    void SetShown(bool shown);
    void Show(bool shown);
    [[nodiscard]] Targets<UserId> TargetsOfPanel() const;
    void RunFor(const Targets<UserId> &targets, void (UserBlocking::*run)(const QList<UserId> &));
    void Run(WhyCommand command, bool ofGroup, UserId userId, GroupId groupId);
    void RunForUser(WhyCommand command, UserId userId);
    void RunForGroup(WhyCommand command, GroupId groupId);

    const AppServices &services;
    CSplitterFrame &frame;
    QSplitter &panes;
    WhyPanel *panel;
    ChosenUsers *chosen;
    UserBlocking *blocking;
    QAction *show;
};
