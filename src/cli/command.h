// The commands of the command line: each is a row of a table and a function.
#pragma once

#include "cli/stop.h"

#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>

class Work;

struct CommandOption
{
    const char *name;
    const char *value; // what stands for its value in the help; null for one without
    const char *about;
    const char *letter = nullptr; // a short name
    bool saysWhose = false; // whom the command is for, not what it does
};

// What was given to a command: its words behind its own name, and its options.
class Given
{
public:
    explicit Given(const QCommandLineParser &commandLine) : parser(commandLine) { }

    [[nodiscard]] QStringList Words() const { return parser.positionalArguments(); }
    [[nodiscard]] QString Word(qsizetype index) const { return Words().value(index); }
    [[nodiscard]] bool Has(const QString &option) const
    {
        return parser.optionNames().contains(option);
    }

    // Nothing where the option is not given.
    [[nodiscard]] std::optional<QString> Value(const QString &option) const
    {
        return Has(option) ? std::optional(parser.value(option)) : std::nullopt;
    }

    // Of an option that may be given several times.
    [[nodiscard]] QStringList Values(const QString &option) const
    {
        return Has(option) ? parser.values(option) : QStringList();
    }

private:
    const QCommandLineParser &parser;
};

struct Command
{
    static constexpr int kAnyNumber = 1'000'000;

    const char *name; // "user list"
    const char *words; // what else follows, as "[WORD...]"
    const char *about; // a sentence
    int least; // words
    int most;
    QList<CommandOption> options;
    Or<void> (*run)(Work &work, const Given &given);
    bool needsOption = false; // one of its own that says what to do
};

using Commands = QList<Command>;

// The commands of each family, in the order of the help.
[[nodiscard]] Commands UserCommands();
[[nodiscard]] Commands GroupCommands();
[[nodiscard]] Commands CreditCommands();
[[nodiscard]] Commands LimitCommands();
[[nodiscard]] Commands TimeCommands();
[[nodiscard]] Commands RestrictionCommands();
[[nodiscard]] Commands LoginCommands();
[[nodiscard]] Commands ExchangeCommands();
[[nodiscard]] Commands ProtocolCommands();
[[nodiscard]] Commands NetworkCommands();
[[nodiscard]] Commands CurrencyCommands();
[[nodiscard]] Commands PurgeCommands();
[[nodiscard]] Commands ConfigCommands();
[[nodiscard]] Commands StatusCommands();
