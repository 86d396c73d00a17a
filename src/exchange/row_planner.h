// What a single row of a file makes of its user, without regard to the other rows.
#pragma once

#include "exchange/import_plan.h"

class RowPlanner
{
public:
    // All three outlive this.
    RowPlanner(const ImportTable &table, const StoredUsers &stored, const ImportContext &context);

    // The row's state is not set yet: one with a reason is refused.
    [[nodiscard]] ImportRow Plan(const ImportLine &line) const;

private:
    friend class RowReading;

    void NoteAskedGroups();

    const ImportTable &table;
    const StoredUsers &stored;
    const ImportContext &context;
    QHash<QString, QList<const StoredUserRow *>> users; // by NameKey
    QHash<QString, NamedGroup> groups; // by NameKey
    QHash<QString, QString>
        askedGroups; // that a line of the file has made, as it was first spelled; by NameKey
    UserValues newUser; // what the settings give to one
    QLocale numbers; // of the file
};
