// Searches for users beside everything else: on a connection of their own, so that nobody waits for them,
// and a newer one ends the one before.
#pragma once

#include "access/account_use.h"
#include "access/user_search.h"
#include "db/session_thread.h"

#include <QObject>

#include <functional>

class UserFinder : public QObject
{
    Q_OBJECT

public:
    // What is wanted of a search.
    struct Search
    {
        UserFilter filter;
        ListOrder order;
        bool withGroupNames = false;
        std::optional<AccountMoment> accounts; // what was used and is left is wanted too
        bool quickFirst = false; // what begins with a word is given first, where an index finds it
    };

    // Looks in the data source that `consoleSession` has open, from the first search on.
    explicit UserFinder(const SessionThread &consoleSession, QObject *parent = nullptr);

    // The search before it is ended and gives nothing more.
    void Find(const Search &search);
    void Stop();

    // Of the search that was started last, until it has given its last rows and its counts.
    [[nodiscard]] bool IsSearching() const { return steps > 0; }

signals:
    // `whole`: these are the rows; else they are some of them, and the others follow.
    void Found(const UserList &users, bool whole);

    // How many users there are that were searched for, and how many in all.
    void Counted(quint32 found, quint32 all);

    // Neither comes any more.
    void Failed(const Failure &failure);

private:
    template <typename Work, typename Take>
    void Start(Work work, Take take);
    void FindWhole(const Search &search);
    void Count(const Search &search, qsizetype listed);

    const SessionThread &console;
    SessionThread session; // searches and nothing else: what it runs may be cancelled at any time
    int generation = 0; // of searches
    int steps = 0; // of the present search that have not come to their end
};
