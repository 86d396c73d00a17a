// Settings that are changed as a whole: how a command reads them, writes them and tells of it.
#pragma once

#include "cli/work.h"

// The values of a key that can be written; why not, where its file is missing or cannot be read.
[[nodiscard]] Or<KeyReader> ReadKeyToWrite(const Work &work, ConfigKeyId key);

// Prints that values of the key have become others: `name` is what they are together.
void PrintSettings(Work &work,
                   ConfigKeyId key,
                   const QString &name,
                   const QStringList &before,
                   const QStringList &after);

// Writes by `write`, unless it is a trial, and tells of it.
template <typename Write>
[[nodiscard]] Or<void> WriteSettings(Work &work, const Write &write)
{
    if (const auto may = work.MayChange(); !may || work.IsTrial()) {
        return may;
    }
    const SettingsResult written = write(work.Settings());
    return written ? Or<void>() : StopWith(ExitStatus::Failed, TextOf(written.error()));
}
