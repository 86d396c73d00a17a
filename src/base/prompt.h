// The one seam through which the program tells and asks: handed in wherever something may speak.
#pragma once

#include <QString>

class Prompt
{
public:
    enum class Icon { Information, Warning, Error };

    Prompt() = default;
    Prompt(const Prompt &) = delete;
    Prompt &operator=(const Prompt &) = delete;
    virtual ~Prompt() = default;

    // Shows `text` with an OK button and returns once it is dismissed. An empty caption stands for
    // the program's own, "Tollbrook Administrator".
    virtual void
    Tell(const QString &text, Icon icon = Icon::Information, const QString &caption = {}) = 0;

    // Asks with Yes and No. True for Yes only: closing the box is a No.
    [[nodiscard]] virtual bool Ask(const QString &text, const QString &caption = {}) = 0;

    // Asks whether something may be removed for good, or many users changed at once: No is the button
    // that Return presses. `goes` stands in a line of its own below the text and says what is removed or
    // changed, as NamesLine does; it may be empty.
    [[nodiscard]] virtual bool AskToDestroy(const QString &text, const QString &goes) = 0;
};
