// The users that a filter finds, out of all in the database: the rows that the list shows, how many there
// are, and every one of them. For a session of its own: a search may take a second, and is cancelled
// when a newer one is wanted.
#pragma once

#include "access/user_filter.h"
#include "access/user_list.h"

#include <vector>

// How the rows are put in order, see user_order.
struct ListOrder
{
    int column = user_order::kUserName;
    bool ascending = true;
};

// Whether a search for what begins so is worth its while: it finds by indexes within a moment, and the
// whole search then takes its place.
[[nodiscard]] bool HasQuickSearch(const UserFilter &filter);

// Of the users of the filter some, at most 1000, whose name, full name, workstation, address or login
// begins with the longest of its words, or whose MAC address begins with a run of them: of each of these, the first 250 beginnings are looked at.
[[nodiscard]] Result<UserList>
FindUsersQuickly(const UserFilter &filter, ListOrder order, bool withGroupNames);

// The first 1000 of all that the filter finds.
[[nodiscard]] Result<UserList>
FindUsers(const UserFilter &filter, ListOrder order, bool withGroupNames);

// Of all that it finds, only their ids, in that order.
[[nodiscard]] Result<std::vector<UserId>> FindUserIds(const UserFilter &filter, ListOrder order);

// How many it finds.
[[nodiscard]] Result<quint32> CountFoundUsers(const UserFilter &filter);

// Every one that it finds, see user_list::ForEach.
[[nodiscard]] std::optional<Failure>
ForEachFoundUser(const UserFilter &filter,
                 ListOrder order,
                 FunctionRef<void()> restart,
                 FunctionRef<bool(const UserRow &, UserId)> take);
