// "Block" and "Unblock" of chosen users, and "Undo" until the next action.
#pragma once

#include "access/block_commands.h"
#include "startup/app_services.h"

#include <QList>
#include <QObject>

class UserBlocking : public QObject
{
    Q_OBJECT

public:
    // `window` waits while something is done.
    UserBlocking(const AppServices &services, QWidget &window);

    // Each does nothing for no users.
    void Block(const QList<UserId> &userIds);
    void Unblock(const QList<UserId> &userIds);
    void Undo();

signals:
    void Done(); // of all three

    // What "Undo" would take back, in a word or two; empty for nothing.
    void UndoOffered(const QString &what);

private:
    void Run(const QString &what,
             const QList<UserId> &userIds,
             Action (*actionOn)(const std::vector<UserId> &, const BlockChanges &));
    void Offer(const QString &what, std::vector<BlockChange> changes);

    const AppServices &services;
    QWidget &window;
    std::vector<BlockChange> undoable;
};
