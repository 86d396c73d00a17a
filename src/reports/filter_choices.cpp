#include "reports/filter_choices.h"

#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

template <typename IdType>
std::vector<Named<IdType>> Offered(const char *sqlText)
{
    std::vector<Named<IdType>> offered;
    RowCursor rows(sqlText);
    while (rows.Next()) {
        offered.push_back({queryResult.Id<IdType>(2), queryResult.Text(1)});
    }
    return offered;
}

template <typename IdType>
QString NameOf(const char *sqlText, IdType id)
{
    RunQuery(sqlText, FetchMode::One, id);
    return queryResult.Text(1);
}

} // namespace

std::vector<Named<UserId>> OfferedUsers()
{
    return Offered<UserId>("SELECT username, user_id FROM users WHERE monitored = true");
}

std::vector<Named<GroupId>> OfferedGroups()
{
    return Offered<GroupId>("SELECT name, group_id FROM groups");
}

QString UserName(UserId userId)
{
    return NameOf("SELECT username FROM users WHERE user_id = (?)", userId);
}

QString GroupName(GroupId groupId)
{
    return NameOf("SELECT name FROM groups WHERE group_id = (?)", groupId);
}

template <typename IdType>
ReportFilter<IdType>
FilterOf(const std::vector<Named<IdType>> &offered, const QStringList &names, QStringList &unknown)
{
    ReportFilter<IdType> filter;
    unknown = names;
    for (const auto &[id, name] : offered) {
        const bool taken = names.contains(name, Qt::CaseInsensitive);
        (taken ? filter.taken : filter.left) += id;
        unknown.removeIf([&bearer = name](const QString &wanted) {
            return wanted.compare(bearer, Qt::CaseInsensitive) == 0;
        });
    }
    return filter;
}

template ReportFilter<UserId>
FilterOf(const std::vector<Named<UserId>> &, const QStringList &, QStringList &);
template ReportFilter<GroupId>
FilterOf(const std::vector<Named<GroupId>> &, const QStringList &, QStringList &);

QStringList NamesFrom(const QString &list)
{
    QStringList names;
    QString name;
    bool quoted = false;
    for (qsizetype at = 0; at < list.size(); ++at) {
        const QChar c = list[at];
        const bool doubled = quoted && c == u'"' && at + 1 < list.size() && list[at + 1] == u'"';
        if (c == u'"' && !doubled) {
            quoted = !quoted;
        } else if (c == u',' && !quoted) {
            names += std::exchange(name, {});
        } else {
            name += c;
            at += doubled ? 1 : 0;
        }
    }
    names += name;
    names.removeAll(QString());
    return names;
}
