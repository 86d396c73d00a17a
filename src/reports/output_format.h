// The kinds of files that a report can be written as: all that is known of each stands here.
#pragma once

#include <QStringList>

#include <array>
#include <optional>

enum class OutputFormat { Pdf, Csv, Html, Xlsx };

struct FormatEntry
{
    OutputFormat format;
    QStringView ending; // without its dot, in lower case
    const char *kind; // in English, with the pattern of its names
};

[[nodiscard]] const std::array<FormatEntry, 4> &OutputFormats();

// By the file name's ending in any case; nothing for another one.
[[nodiscard]] std::optional<OutputFormat> FormatOf(const QString &fileName);

// "Spreadsheet (*.xlsx)", in the language of the program.
[[nodiscard]] QString KindOf(OutputFormat format);
[[nodiscard]] QString EndingOf(OutputFormat format);

// ".pdf, .csv, .html or .xlsx"
[[nodiscard]] QString EndingsInWords();
