// Texts as a terminal may show them: a name from the network or the database may hold anything.
#pragma once

#include <QString>

// Each character that a terminal could obey, or that would not be seen, as "\u001b". Line ends stay
// where `keepsLines` says that they are the program's own.
[[nodiscard]] QString PlainText(const QString &text, bool keepsLines = false);

// The cells of a terminal that the text takes: two for a wide letter, none for an accent on its own.
[[nodiscard]] qsizetype TerminalWidth(const QString &text);
