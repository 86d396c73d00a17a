// The prompt that a person sees: message boxes over the window in use.
#pragma once

#include "base/prompt.h"

class MessageBoxPrompt : public Prompt
{
public:
    void Tell(const QString &text, Icon icon, const QString &caption) override;
    [[nodiscard]] bool Ask(const QString &text, const QString &caption) override;
    [[nodiscard]] bool AskToDestroy(const QString &text, const QString &goes) override;
};
