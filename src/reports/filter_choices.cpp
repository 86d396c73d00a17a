#include "reports/filter_choices.h"

#include "db/query.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

template <typename IdType>
Result<std::vector<Named<IdType>>> Offered(const char *sqlText)
{
    return ReadAll(sqlText, [](const Row &row) {
        return Named<IdType> {row.Id<IdType>(2), row.Text(1)};
    });
}

} // namespace

Result<std::vector<Named<UserId>>> OfferedUsers()
{
    return Offered<UserId>("SELECT username, user_id FROM users WHERE monitored = true");
}

Result<std::vector<Named<GroupId>>> OfferedGroups()
{
    return Offered<GroupId>("SELECT name, group_id FROM groups");
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
