#include "ui/main/user_blocking.h"

#include "app/perform.h"
#include "base/names_line.h"

#include <QWidget>

#include <utility>

UserBlocking::UserBlocking(const AppServices &appServices, QWidget &frame)
    : QObject(&frame)
    , services(appServices)
    , window(frame)
{
    // Whatever is stored next may rest on what would be undone.
    connect(&services.news, &ChangeNews::Stored, this, [this] { Offer({}, {}); });
    connect(&services.news, &ChangeNews::SettingsStored, this, [this] { Offer({}, {}); });
}

void UserBlocking::Block(const QList<UserId> &userIds)
{
    Run(tr("Block"), userIds, BlockUsersAction);
}

void UserBlocking::Unblock(const QList<UserId> &userIds)
{
    Run(tr("Unblock"), userIds, UnblockUsersAction);
}

void UserBlocking::Run(const QString &what,
                       const QList<UserId> &userIds,
                       Action (*actionOn)(const std::vector<UserId> &, const BlockChanges &))
{
    if (userIds.isEmpty()) {
        return;
    }
    const auto changed = std::make_shared<std::vector<BlockChange>>();
    if (Perform(services,
                &window,
                tr("Storing the users..."),
                actionOn({userIds.begin(), userIds.end()}, changed))) {
        Offer(what, *changed);
        emit Done();
    }
}

// What is refused stays refused; what failed may be tried once more.
void UserBlocking::Undo()
{
    const std::vector<BlockChange> changes = undoable;
    if (changes.empty()) {
        return;
    }
    const auto changedSince = std::make_shared<QStringList>();
    const Outcome outcome = PerformTelling(
        services, &window, tr("Storing the users..."), UndoBlocksAction(changes, changedSince));
    if (outcome.IsDone()) {
        emit Done();
        if (!changedSince->isEmpty()) {
            services.prompt.Tell(tr("The block of these users was changed meanwhile and stays: %1")
                                     .arg(NamesLine(*changedSince)));
        }
    } else if (outcome.state == Outcome::State::Refused) {
        Offer({}, {});
    }
}

void UserBlocking::Offer(const QString &what, std::vector<BlockChange> changes)
{
    undoable = std::move(changes);
    emit UndoOffered(undoable.empty() ? QString() : what);
}
