#include "reports/filter_choices.h"

#include "db/query.h"

#include <QHash>

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

// In the order of the ids.
template <typename IdType>
QStringList NamesOf(const QList<IdType> &ids, const std::vector<Named<IdType>> &offered)
{
    QHash<IdType, QString> names;
    for (const auto &[id, name] : offered) {
        names.insert(id, name);
    }
    QStringList named;
    for (const IdType id : ids) {
        if (const auto name = names.constFind(id); name != names.constEnd()) {
            named << *name;
        }
    }
    return named;
}

template <typename IdType>
FilterScope NamedScope(FilterEffect effect,
                       const ReportFilter<IdType> &filter,
                       const std::vector<Named<IdType>> &offered)
{
    switch (effect) {
    case FilterEffect::Only:
        return {effect, NamesOf(filter.taken, offered)};
    case FilterEffect::AllBut:
        return {effect, NamesOf(filter.left, offered)};
    default:
        return {effect, {}};
    }
}

} // namespace

FilterScope ScopeOf(const ReportFilter<UserId> &filter, const std::vector<Named<UserId>> &offered)
{
    return NamedScope(UserFilterEffect(filter.taken.size(), filter.left.size()), filter, offered);
}

FilterScope ScopeOf(const ReportFilter<GroupId> &filter, const std::vector<Named<GroupId>> &offered)
{
    return NamedScope(GroupFilterEffect(filter.taken.size(), filter.left.size()), filter, offered);
}

FilterScope ScopeOf(const KeptFilter<UserId> &filter, const std::vector<Named<UserId>> &all)
{
    return {filter.effect, NamesOf(filter.ids, all)};
}

FilterScope ScopeOf(const KeptFilter<GroupId> &filter, const std::vector<Named<GroupId>> &all)
{
    const bool leavesOutNone = filter.effect == FilterEffect::AllBut && filter.ids.size() > 1;
    return leavesOutNone ? FilterScope {FilterEffect::Everybody, {}}
                         : FilterScope {filter.effect, NamesOf(filter.ids, all)};
}

Result<std::vector<Named<UserId>>> OfferedUsers()
{
    return Offered<UserId>("SELECT username, user_id FROM users WHERE monitored = true");
}

Result<std::vector<Named<UserId>>> AllUsers()
{
    return Offered<UserId>("SELECT username, user_id FROM users");
}

Result<std::vector<Named<GroupId>>> OfferedGroups()
{
    return Offered<GroupId>("SELECT name, group_id FROM groups");
}

Result<ReportOffers> ReadOffers()
{
    auto users = OfferedUsers();
    auto allUsers = users ? AllUsers() : users;
    if (!allUsers) {
        return tl::unexpected(allUsers.error());
    }
    auto groups = OfferedGroups();
    if (!groups) {
        return tl::unexpected(groups.error());
    }
    return ReportOffers {*std::move(users), *std::move(allUsers), *std::move(groups)};
}

template <typename IdType>
std::vector<Named<IdType>>
BearersOf(const QStringList &names, const std::vector<Named<IdType>> &offered, QStringList &unknown)
{
    QHash<QString, bool> isBorne;
    for (const QString &name : names) {
        isBorne.insert(name.toCaseFolded(), false);
    }
    std::vector<Named<IdType>> bearers;
    for (const auto &[id, name] : offered) {
        if (const auto wanted = isBorne.find(name.toCaseFolded()); wanted != isBorne.end()) {
            *wanted = true;
            bearers.push_back({id, name});
        }
    }
    unknown = names;
    unknown.removeIf([&](const QString &name) { return isBorne.value(name.toCaseFolded()); });
    return bearers;
}

template std::vector<Named<UserId>>
BearersOf(const QStringList &, const std::vector<Named<UserId>> &, QStringList &);
template std::vector<Named<GroupId>>
BearersOf(const QStringList &, const std::vector<Named<GroupId>> &, QStringList &);

template <typename IdType>
Result<KeptFilter<IdType>> LookUp(const QStringList &names,
                                  const KeptFilter<IdType> &kept,
                                  Result<std::vector<Named<IdType>>> (*offers)(),
                                  FilterScope &scope,
                                  QStringList &unknown)
{
    if (names.isEmpty() && kept.effect == FilterEffect::None) {
        return kept;
    }
    const auto offered = offers();
    if (!offered) {
        return tl::unexpected(offered.error());
    }
    KeptFilter<IdType> filter = kept;
    if (!names.isEmpty()) {
        filter = {FilterEffect::Only, {}};
        QStringList notFound;
        for (const auto &bearer : BearersOf(names, *offered, notFound)) {
            filter.ids += bearer.id;
        }
        unknown += notFound;
    }
    scope = ScopeOf(filter, *offered);
    return filter;
}

template Result<KeptFilter<UserId>> LookUp(const QStringList &,
                                           const KeptFilter<UserId> &,
                                           Result<std::vector<Named<UserId>>> (*)(),
                                           FilterScope &,
                                           QStringList &);
template Result<KeptFilter<GroupId>> LookUp(const QStringList &,
                                            const KeptFilter<GroupId> &,
                                            Result<std::vector<Named<GroupId>>> (*)(),
                                            FilterScope &,
                                            QStringList &);

bool IsOnNobody(const FilterScope &scope)
{
    return scope.effect == FilterEffect::Only && scope.names.isEmpty();
}

QStringList NamesFrom(const QString &list)
{
    QStringList names;
    QString name;
    bool quoted = false;
    qsizetype kept = 0; // characters of the name that are not blanks behind it
    const auto take = [&] { names += std::exchange(name, {}).left(std::exchange(kept, 0)); };
    for (qsizetype at = 0; at < list.size(); ++at) {
        const QChar c = list[at];
        const bool doubled = quoted && c == u'"' && at + 1 < list.size() && list[at + 1] == u'"';
        if (c == u'"' && !doubled && (quoted || name.isEmpty())) {
            quoted = !quoted;
        } else if (c == u',' && !quoted) {
            take();
        } else if (quoted || !c.isSpace() || !name.isEmpty()) {
            name += c;
            kept = quoted || !c.isSpace() ? name.size() : kept;
            at += doubled ? 1 : 0;
        }
    }
    if (quoted) {
        name.prepend(u'"');
        kept = name.size();
    }
    take();
    names.removeAll(QString());
    return names;
}
