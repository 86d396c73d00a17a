#include "db/group_keys.h"

#include "base/text.h"
#include "db/dialect.h"
#include "db/direct_connection.h"
#include "db/translation.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QSet>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GroupKeys)
};

constexpr int kEverybody = 80; // whom many rows and programs know by this number

struct NamedRow
{
    int groupId;
    QString name;
    QString key;
};

QString Spelled(const DirectConnection &database, const char *statement)
{
    return QString::fromStdString(Translate(database.Engine(), statement));
}

// Whose name counts first comes first. Without keys in the table `query` names something else for them.
std::optional<std::vector<NamedRow>> ReadGroups(DirectConnection &database, const char *query)
{
    const auto rows = database.Rows(Spelled(database, query));
    if (!rows) {
        return std::nullopt;
    }
    std::vector<NamedRow> groups;
    groups.reserve(static_cast<size_t>(rows->size()));
    for (const QStringList &row : *rows) {
        groups.push_back({row.at(0).toInt(), row.at(1), row.at(2)});
    }
    std::stable_partition(groups.begin(), groups.end(), [](const NamedRow &group) {
        return group.groupId == kEverybody;
    });
    return groups;
}

QString Numbered(const QString &name, const QSet<QString> &taken)
{
    for (int number = 2;; ++number) {
        const QString ending = u" (%1)"_s.arg(number);
        const QByteArray beginning = Utf8Cut(name.trimmed(), kMaxTextBytes - ending.size());
        const QString candidate = QString::fromUtf8(beginning) + ending;
        if (!taken.contains(GroupKey(candidate))) {
            return candidate;
        }
    }
}

QList<GroupRename> TwinsAmong(const std::vector<NamedRow> &groups)
{
    QSet<QString> taken; // by any group: a new name is no twin of a later one
    for (const NamedRow &group : groups) {
        taken.insert(GroupKey(group.name));
    }
    QSet<QString> met;
    QList<GroupRename> twins;
    for (const NamedRow &group : groups) {
        const QString key = GroupKey(group.name);
        if (key.isEmpty() || !met.contains(key)) {
            met.insert(key);
            continue;
        }
        const QString name = Numbered(group.name, taken);
        taken.insert(GroupKey(name));
        twins << GroupRename {group.groupId, group.name, name};
    }
    return twins;
}

bool Rename(DirectConnection &database, const GroupRename &twin)
{
    return database.Run(Spelled(database, "UPDATE groups SET name = ? WHERE group_id = ?"),
                        {twin.to.toUtf8(), twin.groupId});
}

bool Forget(DirectConnection &database, int groupId)
{
    return database.Run(Spelled(database, "UPDATE groups SET name_key = NULL WHERE group_id = ?"),
                        {groupId});
}

bool WriteKey(DirectConnection &database, const NamedRow &group)
{
    const QString key = GroupKey(group.name);
    return key.isEmpty()
        || database.Run(Spelled(database, "UPDATE groups SET name_key = ? WHERE group_id = ?"),
                        {key.toLatin1(), group.groupId});
}

constexpr char kGroupsAndKeys[] = "SELECT group_id, name, name_key FROM groups ORDER BY group_id";

std::optional<std::vector<NamedRow>> GroupsWithWrongKeys(DirectConnection &database)
{
    auto groups = ReadGroups(database, kGroupsAndKeys);
    if (groups) {
        std::erase_if(*groups,
                      [](const NamedRow &group) { return group.key == GroupKey(group.name); });
    }
    return groups;
}

} // namespace

QString GroupKey(const QString &name)
{
    const QString key = NameKey(name);
    return key.isEmpty()
        ? QString()
        : QString::fromLatin1(
            QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256).toHex());
}

QString GroupRename::InWords() const
{
    return Words::tr("Group %1, called \"%2\" as another one is, is named \"%3\".")
        .arg(QString::number(groupId), from, to);
}

std::optional<QList<GroupRename>> TwinsOfGroups(DirectConnection &database)
{
    const auto groups =
        ReadGroups(database, "SELECT group_id, name, '' FROM groups ORDER BY group_id");
    return groups ? std::optional(TwinsAmong(*groups)) : std::nullopt;
}

std::optional<GroupKeyFaults> FindGroupKeyFaults(DirectConnection &database)
{
    const auto twins = TwinsOfGroups(database);
    const auto wrong = twins ? GroupsWithWrongKeys(database) : std::nullopt;
    if (!wrong) {
        return std::nullopt;
    }
    GroupKeyFaults faults {*twins, {}, {}};
    for (const NamedRow &group : *wrong) {
        (group.key.isEmpty() ? faults.missingKeys : faults.oldKeys) << group.groupId;
    }
    return faults;
}

// All wrong keys go before the first right one is written, which one of them may be.
bool MakeGroupKeys(DirectConnection &database)
{
    const auto twins = TwinsOfGroups(database);
    const bool renamed = twins && std::ranges::all_of(*twins, [&](const GroupRename &twin) {
                             return Rename(database, twin);
                         });
    const auto wrong = renamed ? GroupsWithWrongKeys(database) : std::nullopt;
    return wrong
        && std::ranges::all_of(*wrong,
                               [&](const NamedRow &group) {
                                   return group.key.isEmpty() || Forget(database, group.groupId);
                               })
        && std::ranges::all_of(*wrong,
                               [&](const NamedRow &group) { return WriteKey(database, group); });
}
