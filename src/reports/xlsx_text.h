// What a spreadsheet's format makes of texts and days.
#pragma once

#include "reports/layout.h"

#include <optional>

// The text as a cell can hold it: what no such file may hold is put out of it, what would be read as
// something else is written so that it is not, and what is too long (32767 characters) is cut.
[[nodiscard]] QByteArray SheetText(const QString &text);

// A sheet's name for a report, or for its further sheets, numbered from 1: at most 31 characters.
[[nodiscard]] QByteArray SheetName(const QString &title, int number);

// A day, with or without its time, as the format counts them: days since the end of 1899. Nothing for a
// text that is none, or a day before March 1900, up to which the format counts a day too many.
[[nodiscard]] std::optional<double> SheetMoment(const QString &text);
