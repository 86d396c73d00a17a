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
[[nodiscard]] Result<std::vector<Named<GroupId>>> OfferedGroups();

// The filter that takes the named ones out of `offered` and leaves the others; a name takes all
// that bear it. Names that nobody bears are put into `unknown`.
template <typename IdType>
[[nodiscard]] ReportFilter<IdType>
FilterOf(const std::vector<Named<IdType>> &offered, const QStringList &names, QStringList &unknown);
extern template ReportFilter<UserId>
FilterOf(const std::vector<Named<UserId>> &, const QStringList &, QStringList &);
extern template ReportFilter<GroupId>
FilterOf(const std::vector<Named<GroupId>> &, const QStringList &, QStringList &);

// "a,b" as names; one with a comma or a quotation mark stands between quotation marks, doubled
// inside.
[[nodiscard]] QStringList NamesFrom(const QString &list);
