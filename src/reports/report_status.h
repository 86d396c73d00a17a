// How a run of tollbrook-report ends.
#pragma once

#include <QString>

enum class ReportStatus {
    Done = 0,
    Empty = 1, // nothing to report, where that was to be told
    BadArguments = 2,
    Database = 3,
    LayoutFile = 4,
    Output = 5,
    Mail = 6,
    Timer = 7
};

// What an exit status means, in a few words for a person.
[[nodiscard]] QString InWords(ReportStatus status);

// Tells the text on standard error as tollbrook-report, for which it gives the exit status.
int Fail(ReportStatus status, const QString &text);
