// Looks at a window's texts as they stand on the screen: which are not translated, and which are cut.
#pragma once

#include <QSet>
#include <QStringList>

class QWidget;

// With the translation of tools/pseudo_locale.py, whose texts stand in brackets: one line for each text
// without them, `data` (names out of the database) aside, and for each that has no room.
[[nodiscard]] QStringList TextProblems(QWidget &window, const QSet<QString> &data);
