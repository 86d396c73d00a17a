// From a line of a summary to the detailed report behind it.
#pragma once

#include "db/failure.h"
#include "reports/cell.h"
#include "reports/filter_choices.h"
#include "reports/selection.h"

// What a report of the catalogue was made on.
struct ReportSelection
{
    int row = -1; // of the catalogue; -1 for none
    ReportPeriod period {};
    KeptFilter<UserId> users {};
    KeptFilter<GroupId> groups {};
    FilterScope userScope {}; // the same in names
    FilterScope groupScope {};
};

// Whether there is a detailed report behind each line of the catalogue's row.
[[nodiscard]] bool HasDetails(int row);

// The detailed report on the user or the group of the line, in the period and within the filter of the summary.
// Reads on the session of the calling thread. Nothing when the line names nobody who still exists.
[[nodiscard]] Result<std::optional<ReportSelection>>
DetailBehind(const ReportSelection &summary, const Layout &layout, const CellRow &line);

// The whole text of its query; other than QueryText() its filters hold for all that there is too.
[[nodiscard]] QString QueryOf(const ReportSelection &selection);
[[nodiscard]] QString FilterWordsOf(const ReportSelection &selection); // empty without a filter
