// What every window promises when the database fails it, tried with each of its statements.
#pragma once

#include <QString>

#include <functional>

class QWidget;
class ScriptedPrompt;

// Opens a window once for each statement of its opening, with that one refused: no window may open, and
// one message, which begins with `words`, be told. In the end nothing is refused, and the window opens
// and is closed again.
void ExpectOpensOrTells(const QString &dsn,
                        ScriptedPrompt &prompt,
                        const std::function<void()> &open,
                        const QString &words);

// Presses "OK" once for each statement that it sends, with that one refused: the window may not close,
// nothing may be changed, one message, which begins with `words`, be told, and `expectKept` looks at
// what was typed. In the end nothing is refused, and the window is closed by its OK.
void ExpectStoresOrKeeps(const QString &dsn,
                         ScriptedPrompt &prompt,
                         QWidget &window,
                         const QString &words,
                         const std::function<void()> &expectKept);
