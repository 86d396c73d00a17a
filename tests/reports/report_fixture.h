// A little data for the reports, on whichever database the session is open, and reports made of it.
#pragma once

#include "reports/engine.h"
#include "reports/selection.h"

#include <QString>

// Users with odd names, groups, some days of traffic and time, credits of all modes and visited
// sites.
void FillReportData();

// The odd user names among them.
[[nodiscard]] QStringList OddNames();

// A filter in plain numbers, which a case can write for users and groups alike.
struct FilterNumbers
{
    QList<quint32> taken;
    QList<quint32> left;

    template <typename IdType>
    [[nodiscard]] ReportFilter<IdType> Filter() const
    {
        return {{taken.begin(), taken.end()}, {left.begin(), left.end()}};
    }
};

// The request for a catalogue row, read from the layouts in the source tree.
[[nodiscard]] ReportRequest RequestFor(const QString &dsn,
                                       int row,
                                       const ReportPeriod &period = {},
                                       const QString &userClause = {},
                                       const QString &groupClause = {});

// The report, made at a fixed time; a failure fails the test.
[[nodiscard]] ReportTablePtr ReportOf(const ReportRequest &request);
