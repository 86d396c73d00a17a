// Writes an import: all of it or nothing.
#pragma once

#include "actions/action.h"
#include "exchange/import_plan.h"

// What was confirmed: the file, and what was shown to become of it.
struct ImportJob
{
    ImportTable table;
    ImportContext context;
    ImportPlan plan;
};

// Writes the plan's new and changed rows. The plan is made again under the rows' locks, and the import is
// refused, with the name, when a user or what it is to get was changed meanwhile. `job` is shared with
// whoever shows it, and never changed.
[[nodiscard]] Action ImportAction(const std::shared_ptr<const ImportJob> &job);

// The same within an action of another name. Gives the rows that were written, new users with their ids;
// of a run that was stopped they mean nothing.
std::vector<ImportRow> RunImport(ActionRun &run, const ImportJob &job);
