// The users and groups that a report can be narrowed to, as the database holds them.
#pragma once

#include "reports/selection.h"

#include <QStringList>

#include <vector>

struct NamedId
{
    quint32 id = 0;
    QString name;
};

// Read through the session, in its order.
[[nodiscard]] std::vector<NamedId> OfferedUsers(); // those that are monitored
[[nodiscard]] std::vector<NamedId> OfferedGroups();

// Empty when there is none.
[[nodiscard]] QString UserName(quint32 userId);
[[nodiscard]] QString GroupName(quint32 groupId);

// The filter that takes the named ones out of `offered` and leaves the others; a name takes all
// that bear it. Names that nobody bears are put into `unknown`.
[[nodiscard]] ReportFilter
FilterOf(const std::vector<NamedId> &offered, const QStringList &names, QStringList &unknown);

// "a,b" as names; one with a comma or a quotation mark stands between quotation marks, doubled
// inside.
[[nodiscard]] QStringList NamesFrom(const QString &list);
