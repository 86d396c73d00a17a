// A prompt that answers from a script and remembers what was said.
#pragma once

#include "base/prompt.h"

#include <QQueue>
#include <QStringList>

#include <functional>
#include <utility>

class ScriptedPrompt : public Prompt
{
public:
    void Tell(const QString &text, Icon icon, const QString &caption) override;
    [[nodiscard]] bool Ask(const QString &text, const QString &caption) override;
    [[nodiscard]] bool AskToDestroy(const QString &text, const QString &goes) override;

    // Answers for the questions to come, in order; a question beyond them is answered No.
    void AnswerWith(std::initializer_list<bool> next) { answers.append(next); }

    // Everything told and asked since the last call, in order.
    [[nodiscard]] QStringList TakeSaid() { return std::exchange(said, {}); }

    // What the questions on removals since the last call named, one line for each.
    [[nodiscard]] QStringList TakeGoing() { return std::exchange(going, {}); }

    // Called while each message or question stands; a real one takes the focus meanwhile.
    std::function<void()> meanwhile = [] {};

    Icon lastIcon = Icon::Information;
    QString lastCaption;

private:
    QQueue<bool> answers;
    QStringList said;
    QStringList going;
};
