// What became of a save that goes on past whatever fails: a value, which a window tells in one
// message.
#pragma once

#include "actions/action.h"
#include "config/settings_failure.h"

#include <QList>
#include <QStringList>

struct SaveReport
{
    // Unanswered ones: the same save is to be run again with their answers. They come before anything
    // is written, unless somebody else changes the same rows at that moment.
    QList<Question> questions;
    bool isDeclined = false; // a person said No to what belongs to the save: nothing was written
    bool isUnknown = false; // the save was given up on its way: some of it may have been written

    QList<SettingsFailure> settings; // files that could not be read or written
    QStringList notDone; // sentences on what failed in the database
    QStringList leftOut; // sentences on what was not tried, and why
    QList<Failure> statements; // those that failed, in their order

    // True when everything was written.
    [[nodiscard]] bool IsDone() const;

    // What a person is told when something failed: what was not done, that the rest was written, and
    // why. Empty when everything was written, and while there are questions.
    [[nodiscard]] QString InWords() const;

    void Add(const SettingsResult &result);
    void Add(ActionId action, const Outcome &outcome);
};

template <>
struct GivenUp<SaveReport>
{
    // Whatever the database kept, some of the settings may have been written before.
    [[nodiscard]] static SaveReport As(const Failure &failure, bool mayBeKept)
    {
        Q_UNUSED(mayBeKept)
        SaveReport report;
        report.isUnknown = true;
        report.statements << failure;
        return report;
    }
};
