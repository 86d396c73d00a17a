// What a question on a deletion names below its text.
#pragma once

#include <QStringList>

// The first five of the names, and how many more there are: "anna, bert, carl, dora, emil and 12 more".
// A long name is cut, and one that is blank is said to be none. Empty for no names.
[[nodiscard]] QString NamesLine(const QStringList &names);
