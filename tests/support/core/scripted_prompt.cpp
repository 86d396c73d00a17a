#include "support/core/scripted_prompt.h"

void ScriptedPrompt::Tell(const QString &text, Icon icon, const QString &caption)
{
    said << text;
    lastIcon = icon;
    lastCaption = caption;
    meanwhile();
}

bool ScriptedPrompt::Ask(const QString &text, const QString &caption)
{
    said << text;
    lastCaption = caption;
    meanwhile();
    return !answers.isEmpty() && answers.dequeue();
}

bool ScriptedPrompt::AskToDestroy(const QString &text, const QString &goes)
{
    going << goes;
    return Ask(text, {});
}
