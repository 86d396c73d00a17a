// The rows of the table users that an import makes and changes, thousands with few statements.
#pragma once

#include "actions/action_run.h"
#include "exchange/import_plan.h"

class UserWriter
{
public:
    // Both outlive this; the rows know their groups.
    UserWriter(ActionRun &actionRun, const std::vector<ImportRow> &writtenRows)
        : run(actionRun)
        , rows(writtenRows)
    { }

    // New users without a block; of changed ones the texts, addresses, groups and whether they must log
    // in, and unless they need a sheet the access type with its limits and price.
    void Write();

private:
    void InsertNew();
    void WriteTexts();
    void WriteAddresses();
    void WriteLimits();

    // Stages the changed rows that `isMeant` names by `add`, and has `write` write so many at once.
    template <typename IsMeant, typename Add>
    void WriteChanged(const char *sqlText, const IsMeant &isMeant, const Add &add);

    ActionRun &run;
    const std::vector<ImportRow> &rows;
};
