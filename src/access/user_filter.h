// What is typed to find users: words that each narrow what is found, and what they mean.
#pragma once

#include "base/ipv4.h"
#include "db/value_codes.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <compare>
#include <tl/expected.hpp>

// A group by its name, in any letter case.
struct FilterGroup
{
    QString name;
    bool whole = false; // else the name begins with it

    bool operator==(const FilterGroup &) const = default;
};

// Addresses from the first to the last, both included.
struct AddressSpan
{
    Ipv4 first = 0;
    Ipv4 last = 0;

    bool operator==(const AddressSpan &) const = default;
};

// Texts one after the other that are the digits of a hardware address, typed with blanks between them.
struct DigitRun
{
    qsizetype first = 0; // index of the text
    qsizetype count = 0; // two or more
    QString digits; // of all of them, at least four, in upper case

    bool operator==(const DigitRun &) const = default;
};

// A user is found when everything that is named here holds for it.
struct UserFilter
{
    // Each stands somewhere in the user name, full name, workstation, description, IP or MAC address,
    // in the group's name or in a login of the user.
    QStringList texts {};
    // Where the digits of a run stand in the MAC address, its texts need not stand anywhere.
    QList<DigitRun> runs {};
    QList<FilterGroup> groups {};
    QList<AddressSpan> spans {};
    QList<QList<AccountingMode>> modes {}; // one of each list
    bool blocked = false; // as the list shows it
    bool usedUp = false; // blocked since a limit or the credit is used up

    bool operator==(const UserFilter &) const = default;
};

// The most words of one filter, and the most characters of one word.
constexpr qsizetype kMostFilterWords = 6;
constexpr qsizetype kLongestFilterWord = 60;

// What was typed as a filter: words parted by blanks, a phrase in quotes, group:NAME, mode:NAME, blocked,
// over, 10.1.2.0/24 and 10.1.2.5-10.1.2.9. A quoted word means itself. Nothing typed is a filter that
// names nothing; what cannot be understood is a message for a person.
[[nodiscard]] tl::expected<UserFilter, QString> UserFilterFrom(const QString &typed);

// True when the filter names nothing: every user would be found.
[[nodiscard]] bool IsEmpty(const UserFilter &filter);

// What may stand instead of the word in which the cursor is.
struct FilterCompletion
{
    qsizetype from = 0; // of the word in the typed text
    qsizetype length = 0;
    QStringList candidates; // as they are typed; none when there is nothing to offer
};

// The words that begin as the one up to `cursor` does, in any letter case; behind "group:" out of
// `groupNames`, in their order.
[[nodiscard]] FilterCompletion
CompletionAt(const QString &typed, qsizetype cursor, const QStringList &groupNames);
