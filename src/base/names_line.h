// What a question on several users names below its text.
#pragma once

#include <QStringList>

// The first five of the names, and how many more there are: "anna, bert, carl, dora, emil and 12 more".
// A long name is cut, and one that is blank is said to be none. Empty for no names.
[[nodiscard]] QString NamesLine(const QStringList &names);

// The same of `count` names, of which only the first are known: at least five, or all.
[[nodiscard]] QString NamesLineOf(const QStringList &firstNames, qsizetype count);

constexpr qsizetype kNamesOfLine = 5;
