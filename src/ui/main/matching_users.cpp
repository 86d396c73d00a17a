#include "ui/main/matching_users.h"

#include "app/perform.h"
#include "app/waiting.h"

#include <algorithm>
#include <utility>

MatchingUsers::MatchingUsers(const AppServices &appServices, QObject *parent)
    : QObject(parent)
    , services(appServices)
{ }

void MatchingUsers::Choose(const UserFilter &filter, ListOrder order, QWidget &window)
{
    auto found = AwaitBeside(services, &window, tr("Reading the users..."), [filter, order] {
        return FindUserIds(filter, order);
    });
    Take(found ? std::move(*found) : std::vector<UserId>());
    emit Changed();
    if (!found) {
        TellUnread(services, tr("The users could not be read."), found.error());
    } else if (ids.isEmpty()) {
        services.prompt.Tell(tr("No user found"));
    }
}

void MatchingUsers::Take(std::vector<UserId> found)
{
    ++looks;
    ids = QList<UserId>(found.begin(), found.end());
    sorted = std::move(found);
    std::ranges::sort(sorted);
}

void MatchingUsers::End()
{
    if (AreChosen()) {
        Take({});
        emit Changed();
    }
}

void MatchingUsers::LookAgain(const UserFilter &filter, ListOrder order)
{
    if (!AreChosen()) {
        return;
    }
    if (session.DataSource() != services.database.DataSource()) {
        session.Open(services.database.DataSource());
    } else if (session.IsBusy()) {
        session.Cancel();
    }
    const auto look = [filter, order, before = sorted] {
        return FindUserIds(filter, order).map([&before](std::vector<UserId> found) {
            std::erase_if(found, [&before](UserId userId) {
                return !std::ranges::binary_search(before, userId);
            });
            return found;
        });
    };
    session.Start(this, look, [this, asked = ++looks](const Result<std::vector<UserId>> &found) {
        if (found && asked == looks) {
            const bool isFewer = found->size() < sorted.size();
            Take(*found);
            if (isFewer) {
                emit Shrunk();
            }
            emit Changed();
        }
    });
}

bool MatchingUsers::Contains(UserId userId) const
{
    return std::ranges::binary_search(sorted, userId);
}
