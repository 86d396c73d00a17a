// The users and groups that a report can be narrowed to, as the database holds them.
#pragma once

#include "db/failure.h"
#include "reports/selection.h"

#include <QStringList>

#include <vector>

template <typename IdType>
struct Named
{
    IdType id;
    QString name;
};

// In the database's own order.
[[nodiscard]] Result<std::vector<Named<UserId>>> OfferedUsers(); // those that are monitored
[[nodiscard]] Result<std::vector<Named<UserId>>> AllUsers(); // also those that are not
[[nodiscard]] Result<std::vector<Named<GroupId>>> OfferedGroups();

// All of these.
struct ReportOffers
{
    std::vector<Named<UserId>> users;
    std::vector<Named<UserId>> allUsers;
    std::vector<Named<GroupId>> groups;
};
[[nodiscard]] Result<ReportOffers> ReadOffers();

// Those of `offered` that bear one of the names, in any letter case; a name takes all that bear it.
// Names that nobody bears are put into `unknown`.
template <typename IdType>
[[nodiscard]] std::vector<Named<IdType>> BearersOf(const QStringList &names,
                                                   const std::vector<Named<IdType>> &offered,
                                                   QStringList &unknown);
extern template std::vector<Named<UserId>>
BearersOf(const QStringList &, const std::vector<Named<UserId>> &, QStringList &);
extern template std::vector<Named<GroupId>>
BearersOf(const QStringList &, const std::vector<Named<GroupId>> &, QStringList &);

// What a filter makes a report be of, with the names that say so: those taken, or those left out.
struct FilterScope
{
    FilterEffect effect = FilterEffect::None;
    QStringList names; // none for everybody
};

[[nodiscard]] FilterScope ScopeOf(const ReportFilter<UserId> &filter,
                                  const std::vector<Named<UserId>> &offered);
[[nodiscard]] FilterScope ScopeOf(const ReportFilter<GroupId> &filter,
                                  const std::vector<Named<GroupId>> &offered);

// Of a filter that was kept, by the names of all that there are now; whoever is gone has none.
[[nodiscard]] FilterScope ScopeOf(const KeptFilter<UserId> &filter,
                                  const std::vector<Named<UserId>> &all);
[[nodiscard]] FilterScope ScopeOf(const KeptFilter<GroupId> &filter,
                                  const std::vector<Named<GroupId>> &all);

// The filter of those that bear the names, or without names the kept one; whom it names is noted in `scope`, names
// that nobody bears in `unknown`. `offers` reads all that there are, and is not called for want of a filter.
template <typename IdType>
[[nodiscard]] Result<KeptFilter<IdType>> LookUp(const QStringList &names,
                                                const KeptFilter<IdType> &kept,
                                                Result<std::vector<Named<IdType>>> (*offers)(),
                                                FilterScope &scope,
                                                QStringList &unknown);
extern template Result<KeptFilter<UserId>> LookUp(const QStringList &,
                                                  const KeptFilter<UserId> &,
                                                  Result<std::vector<Named<UserId>>> (*)(),
                                                  FilterScope &,
                                                  QStringList &);
extern template Result<KeptFilter<GroupId>> LookUp(const QStringList &,
                                                   const KeptFilter<GroupId> &,
                                                   Result<std::vector<Named<GroupId>>> (*)(),
                                                   FilterScope &,
                                                   QStringList &);

// Whether nobody is left of those that the filter takes.
[[nodiscard]] bool IsOnNobody(const FilterScope &scope);

template <typename IdType>
[[nodiscard]] QList<IdType> IdsOf(const std::vector<Named<IdType>> &those)
{
    QList<IdType> ids;
    for (const auto &each : those) {
        ids += each.id;
    }
    return ids;
}

// "a, b" as names, without the blanks around them; one with a comma, a quotation mark or a blank at its
// end stands between quotation marks, doubled inside. A mark within a name, or without its other one, is a
// part of the name.
[[nodiscard]] QStringList NamesFrom(const QString &list);
