// How the database keeps the names of groups apart: a key of each name, which only one group may have.
//
// Two names count as one by NameKey (base/text.h), whose letters no engine compares by itself: one of them
// knows the capitals of a to z only. So the program writes what the name comes to, as a digest that every
// engine compares alike and that a column takes however long it is. A group without a key, NULL, was
// written by something else; it takes part in nothing until its key is made (MakeGroupKeys).
#pragma once

#include <QList>
#include <QString>

#include <optional>

class DirectConnection;

// The version of the schema that brought the keys.
constexpr int kGroupKeysVersion = 2;

// Empty for a name that cannot be given.
[[nodiscard]] QString GroupKey(const QString &name);

struct GroupRename
{
    int groupId = 0;
    QString from;
    QString to; // that no other group has

    // For whoever runs the program.
    [[nodiscard]] QString InWords() const;

    bool operator==(const GroupRename &) const = default;
};

// The groups that are called as another one is, and what they are to be called: "Staff", of which two
// would be, becomes "Staff (2)". "Everybody" keeps its name, else the oldest group. Nothing when the names
// cannot be read: the connection's Error() tells.
[[nodiscard]] std::optional<QList<GroupRename>> TwinsOfGroups(DirectConnection &database);

// What MakeGroupKeys would do.
struct GroupKeyFaults
{
    QList<GroupRename> twins;
    QList<int> missingKeys; // groups that something else has written, which is no fault
    QList<int> oldKeys; // groups with the key of another name
};

[[nodiscard]] std::optional<GroupKeyFaults> FindGroupKeyFaults(DirectConnection &database);

// Renames the twins, and gives each group the key of its name where it has another one or none. False when
// a statement failed. It belongs into a transaction, and does no harm when it is run again.
[[nodiscard]] bool MakeGroupKeys(DirectConnection &database);
