// Where the program speaks and is spoken to: its output, its messages, and questions on a terminal.
#pragma once

#include "base/prompt.h"

#include <QString>

#include <cstdio>
#include <optional>

// How questions are answered.
struct Answering
{
    bool isYes = false; // --yes: each of them
    bool isTrial = false; // --dry-run: nothing is changed, so that each of them may be yes
};

class Terminal : public Prompt
{
public:
    // `input` is asked where it is a terminal.
    Terminal(std::FILE *input, std::FILE *output, std::FILE *messages);

    void Answer(const Answering &how) { answering = how; }

    // What the command is for, on standard output. False once it could not be written.
    void Print(const QString &text);
    [[nodiscard]] bool Flush();

    // "tollbrook: " and the text, on standard error.
    void
    Tell(const QString &text, Icon icon = Icon::Information, const QString &caption = {}) override;

    [[nodiscard]] bool Ask(const QString &text, const QString &caption = {}) override;
    [[nodiscard]] bool AskToDestroy(const QString &text, const QString &goes) override;

    // Whether a question could not be asked, since there is no terminal and no --yes.
    [[nodiscard]] bool IsUnanswered() const { return isUnanswered; }

    // Whether somebody types what is read.
    [[nodiscard]] bool IsTyped() const;

    // A line that is typed without being shown, or the first line of an input that is no terminal;
    // nothing at its end.
    [[nodiscard]] std::optional<QString> ReadSecret(const QString &label);

    // The same once more, against a slip of the fingers; nothing where nobody types.
    [[nodiscard]] std::optional<QString> ReadSecretAgain(const QString &label);

private:
    [[nodiscard]] bool AskFor(const QString &question);
    static bool Write(std::FILE *stream, const QString &text);

    std::FILE *input;
    std::FILE *output;
    std::FILE *messages;
    Answering answering;
    bool isUnanswered = false;
    bool isWritten = true;
};
