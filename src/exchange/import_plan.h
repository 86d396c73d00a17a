// What an import is going to do, row by row, before anything is written: a pure function of the file and
// of what stands in the database.
#pragma once

#include "access/staged_account.h"
#include "admin/default_profile.h"
#include "base/ipv4.h"
#include "exchange/import_table.h"
#include "exchange/stored_users.h"

#include <QSet>

// What an import takes from the settings.
struct ImportContext
{
    DefaultProfile profile; // of new users, in what their rows do not say
    QSet<Ipv4> excluded; // addresses that the service ignores
    double rate = 1.0; // currency per base unit
};

// Read before the work begins, which must not read settings; in words why they could not be read.
[[nodiscard]] tl::expected<ImportContext, QString> ReadImportContext(const ConfigStore &settings);

enum class ImportState { New, Changed, Unchanged, Refused };

struct ImportRow
{
    int line = 0; // in the file, from 1
    QString name; // of the user
    ImportState state = ImportState::Unchanged;
    QString reason; // of a refused row
    UserId userId; // not set for a new user
    UserValues before; // of a new user what the settings give it
    UserValues after;
    bool isBlocked = false; // now, by whomever
    bool hasUsedUp = false; // a record of an accounting period is used up
    std::optional<QString> digest; // of the login's new password
    bool isNewLogin = false;
    std::optional<StagedCredit> credit; // the first one, which is given
    double creditFigure = 0; // as it stands in the file

    [[nodiscard]] bool IsWritten() const
    {
        return state == ImportState::New || state == ImportState::Changed;
    }

    [[nodiscard]] bool ChangesAccess() const
    {
        return after.mode != before.mode || after.limits != before.limits;
    }

    // Where the service's block may have to be lifted, or its mark of a limit that is used up, the row is
    // written as the user's sheet does it.
    [[nodiscard]] bool NeedsSheet() const
    {
        return state == ImportState::Changed
            && ((isBlocked && (ChangesAccess() || credit)) || (hasUsedUp && ChangesAccess()));
    }

    bool operator==(const ImportRow &) const = default;
};

struct ImportPlan
{
    std::vector<ImportRow> rows; // in the order of the file
    QStringList newGroups; // to be made, in the order of the file

    [[nodiscard]] qsizetype Count(ImportState state) const;
    [[nodiscard]] bool ChangesAnything() const;
};

[[nodiscard]] ImportPlan
PlanImport(const ImportTable &table, const StoredUsers &stored, const ImportContext &context);

// One value that becomes another one, in words for a person. Passwords are never among them.
struct ImportChange
{
    ImportColumn column;
    QString before; // empty for a new user
    QString after;

    bool operator==(const ImportChange &) const = default;
};

[[nodiscard]] QList<ImportChange> ChangesOf(const ImportRow &row);

// For a person: "new".
[[nodiscard]] QString TextOf(ImportState state);

// All changes of the row on one line, or why it is refused.
[[nodiscard]] QString WordsFor(const ImportRow &row);
