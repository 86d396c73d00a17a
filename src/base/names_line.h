// What a question on several users names below its text.
#pragma once

#include <QStringList>

// The first five of the names, and how many more there are: "anna, bert, carl, dora, emil and 12 more".
// A long name is cut, and one that is blank is said to be none. Empty for no names.
[[nodiscard]] QString NamesLine(const QStringList &names);

// The same for `count` names, of which only the first ones are known: up to kMostNames are shown.
constexpr qsizetype kMostNames = 5;
[[nodiscard]] QString NamesLine(const QStringList &first, qsizetype count);
