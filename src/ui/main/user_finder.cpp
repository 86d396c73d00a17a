#include "ui/main/user_finder.h"

#include <utility>

namespace {

// As it was found, with what else is wanted of its users.
Result<UserList> Completed(Result<UserList> found, const UserFinder::Search &search)
{
    if (!search.accounts) {
        return found;
    }
    return std::move(found).and_then(
        [&](UserList users) { return WithAccountUses(std::move(users), *search.accounts); });
}

} // namespace

UserFinder::UserFinder(const SessionThread &consoleSession, QObject *parent)
    : QObject(parent)
    , console(consoleSession)
{ }

void UserFinder::Find(const Search &search)
{
    Stop();
    if (session.DataSource() != console.DataSource()) {
        session.Open(console.DataSource());
    }
    if (search.quickFirst && HasQuickSearch(search.filter)) {
        Start(
            [search] {
                return Completed(
                    FindUsersQuickly(search.filter, search.order, search.withGroupNames), search);
            },
            [this](const UserList &users) {
                if (!users.rows.isEmpty()) {
                    emit Found(users, false);
                }
            });
    }
    FindWhole(search);
}

void UserFinder::Stop()
{
    ++generation;
    steps = 0;
    if (session.IsBusy()) {
        session.Cancel();
    }
}

// Runs one step of the search; what comes of a search that was ended is nobody's any more.
template <typename Work, typename Take>
void UserFinder::Start(Work work, Take take)
{
    ++steps;
    session.Start(this, std::move(work), [this, take, started = generation](const auto &result) {
        if (started != generation) {
            return;
        }
        --steps;
        if (result) {
            take(*result);
        } else {
            Stop();
            emit Failed(result.error());
        }
    });
}

void UserFinder::FindWhole(const Search &search)
{
    Start(
        [search] {
            return Completed(FindUsers(search.filter, search.order, search.withGroupNames), search);
        },
        [this, search](const UserList &users) {
            Count(search, users.rows.size()); // first: the search goes on when the rows are told
            emit Found(users, true);
        });
}

void UserFinder::Count(const Search &search, qsizetype listed)
{
    const auto count = [filter = search.filter, listed]() -> Result<std::pair<quint32, quint32>> {
        const Result<quint32> found = listed < qsizetype {kUserListCapacity}
            ? Result<quint32>(static_cast<quint32>(listed))
            : CountFoundUsers(filter);
        if (!found) {
            return tl::unexpected(found.error());
        }
        return CountListedUsers().map([&found](quint32 all) { return std::pair {*found, all}; });
    };
    Start(count, [this](const std::pair<quint32, quint32> &counts) {
        emit Counted(counts.first, counts.second);
    });
}
