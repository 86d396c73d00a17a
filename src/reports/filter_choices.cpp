#include "reports/filter_choices.h"

#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

std::vector<NamedId> Offered(const char *sqlText)
{
    std::vector<NamedId> offered;
    RowCursor rows(sqlText);
    while (rows.Next()) {
        offered.push_back({queryResult.Integer(2), queryResult.Text(1)});
    }
    return offered;
}

QString NameOf(const char *sqlText, quint32 id)
{
    RunQuery(sqlText, FetchMode::One, id);
    return queryResult.Text(1);
}

} // namespace

std::vector<NamedId> OfferedUsers()
{
    return Offered("SELECT username, user_id FROM users WHERE monitored = true");
}

std::vector<NamedId> OfferedGroups()
{
    return Offered("SELECT name, group_id FROM groups");
}

QString UserName(quint32 userId)
{
    return NameOf("SELECT username FROM users WHERE user_id = (?)", userId);
}

QString GroupName(quint32 groupId)
{
    return NameOf("SELECT name FROM groups WHERE group_id = (?)", groupId);
}

ReportFilter
FilterOf(const std::vector<NamedId> &offered, const QStringList &names, QStringList &unknown)
{
    ReportFilter filter;
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
