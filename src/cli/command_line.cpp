#include "cli/command_line.h"

#include "cli/command.h"
#include "cli/work.h"
#include "startup/rights.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QList<CommandOption> &GlobalOptions()
{
    static const QList<CommandOption> options {
        {"dsn", "NAME", "The ODBC data source; the settings name it unless given."},
        {"config",
         "DIR",
         "The folder of settings; otherwise $TOLLBROOK_CONFIG names it, or it is /etc/tollbrook."},
        {"bus", "system|session", "The message bus of the service; system unless given."},
        {"json", nullptr, "Prints one JSON value for programs."},
        {"dry-run", nullptr, "Shows what would change and writes nothing."},
        {"yes", nullptr, "Answers every question with Yes."},
        {"help", nullptr, "Shows the commands, or what one of them takes.", "h"},
        {"version", nullptr, "Shows the version.", "v"}};
    return options;
}

const Commands &AllCommands()
{
    static const Commands commands = UserCommands() + GroupCommands() + CreditCommands()
        + LimitCommands() + TimeCommands() + RestrictionCommands() + LoginCommands()
        + ExchangeCommands() + ProtocolCommands() + NetworkCommands() + CurrencyCommands()
        + PurgeCommands() + ConfigCommands() + StatusCommands();
    return commands;
}

QString NameOf(const Command &command)
{
    return QString::fromLatin1(command.name);
}

void AddOptions(QCommandLineParser &parser, const QList<CommandOption> &options)
{
    for (const CommandOption &option : options) {
        QStringList names {QString::fromLatin1(option.name)};
        if (option.letter != nullptr) {
            names << QString::fromLatin1(option.letter);
        }
        QCommandLineOption added(names);
        if (option.value != nullptr) {
            added.setValueName(QString::fromLatin1(option.value));
        }
        parser.addOption(added);
    }
}

// What stands before the command's own words: global options, which may take values.
qsizetype PlaceOfCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    AddOptions(parser, GlobalOptions());
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.parse(arguments);
    return arguments.size() - parser.positionalArguments().size();
}

// The command of the longest name that `words` begin with.
const Command *FindCommand(const QStringList &words)
{
    const auto &commands = AllCommands();
    const auto found = std::ranges::find_if(commands, [&words](const Command &command) {
        const QStringList name = NameOf(command).split(u' ');
        return words.first(qMin(words.size(), name.size())) == name;
    });
    return found == commands.end() ? nullptr : &*found;
}

QString OptionLines(const QList<CommandOption> &options)
{
    QString lines;
    for (const CommandOption &option : options) {
        QString name = u"--"_s + QString::fromLatin1(option.name);
        if (option.value != nullptr) {
            name += u' ' + QString::fromLatin1(option.value);
        }
        lines += u"  %1 %2\n"_s.arg(name, -26).arg(QString::fromLatin1(option.about));
    }
    return lines;
}

QString HelpOf(const Command &command)
{
    QString text = u"Usage: tollbrook %1 %2\n%3\n"_s.arg(
        NameOf(command), QString::fromLatin1(command.words), QString::fromLatin1(command.about));
    if (!command.options.isEmpty()) {
        text += u"\nOptions:\n"_s + OptionLines(command.options);
    }
    return text + u"\nOptions of every command:\n"_s + OptionLines(GlobalOptions());
}

bool IsFamily(const QString &word)
{
    return std::ranges::any_of(AllCommands(), [family = word + u' '](const Command &command) {
        return NameOf(command).startsWith(family);
    });
}

// The commands whose names begin with the words, all of them where none does.
QString HelpFor(const QStringList &words)
{
    const QString family = words.value(0) + u' ';
    const bool isFamily = IsFamily(words.value(0));
    QString text = u"Usage: tollbrook [options] COMMAND ...\n"
                   "Administers Tollbrook Network from a terminal or a script.\n\nCommands:\n"_s;
    for (const Command &command : AllCommands()) {
        if (!isFamily || NameOf(command).startsWith(family)) {
            text +=
                u"  %1 %2\n"_s.arg(NameOf(command) + u' ' + QString::fromLatin1(command.words), -40)
                    .arg(QString::fromLatin1(command.about));
        }
    }
    return text + u"\nOptions of every command:\n"_s + OptionLines(GlobalOptions())
        + u"\nUsers and groups are named by name or number (#12), users by IP or MAC address, too.\n"
          "Exit status: 0 done, 1 refused or not found, 2 wrong use, 3 the database, the settings\n"
          "or the output failed, 4 it is not known whether it was done, or only part of it was.\n"_s;
}

// The command line as one that can be run, or why it cannot be.
class CommandLine
{
public:
    CommandLine(const QStringList &given, QString programVersion, Terminal &speech)
        : arguments(given)
        , place(PlaceOfCommand(given))
        , command(FindCommand(given.mid(place)))
        , version(std::move(programVersion))
        , terminal(speech)
    {
        AddOptions(parser, GlobalOptions());
    }

    Or<void> Run()
    {
        if (arguments.join(u' ').contains(QChar::ReplacementCharacter)) {
            return StopWith(ExitStatus::WrongUse, u"The command line is not in UTF-8."_s);
        }
        QStringList without = arguments;
        if (command != nullptr) {
            AddOptions(parser, command->options);
            without.remove(place, NameOf(*command).count(u' ') + 1);
        }
        const bool isUnderstood = parser.parse(without);
        if (parser.isSet(u"version"_s)) {
            terminal.Print(u"tollbrook %1\n"_s.arg(version));
            return {};
        }
        if (parser.isSet(u"help"_s) || parser.positionalArguments() == QStringList {u"help"_s}) {
            terminal.Print(command != nullptr ? HelpOf(*command)
                                              : HelpFor(parser.positionalArguments()));
            return {};
        }
        return command == nullptr ? NoCommand() : RunCommand(isUnderstood);
    }

private:
    [[nodiscard]] Or<void> NoCommand() const
    {
        const QStringList words = arguments.mid(place, 2);
        if (words.size() == 1 && IsFamily(words.first())) {
            return StopWith(ExitStatus::WrongUse,
                            u"Name a command of \"%1\"; \"tollbrook %1 --help\" lists them."_s.arg(
                                words.first()));
        }
        return StopWith(ExitStatus::WrongUse,
                        words.isEmpty()
                            ? u"Name a command; \"tollbrook --help\" lists them."_s
                            : u"There is no command \"%1\"; \"tollbrook --help\" lists them."_s.arg(
                                words.join(u' ')));
    }

    // Why the command's words and options cannot be meant.
    [[nodiscard]] std::optional<QString> Misuse(bool isUnderstood) const
    {
        const qsizetype words = parser.positionalArguments().size();
        if (!isUnderstood) {
            return parser.errorText() + u" A word that begins with a dash stands behind \"--\"."_s;
        }
        if (words < command->least || words > command->most) {
            return u"Usage: tollbrook %1 %2"_s.arg(NameOf(*command),
                                                   QString::fromLatin1(command->words));
        }
        const bool saysWhat = std::ranges::any_of(command->options, [this](const auto &option) {
            return !option.saysWhose && parser.isSet(QString::fromLatin1(option.name));
        });
        if (command->needsOption && !saysWhat) {
            return u"Name what is to change; see \"tollbrook %1 --help\"."_s.arg(NameOf(*command));
        }
        return std::nullopt;
    }

    [[nodiscard]] Or<void> RunCommand(bool isUnderstood)
    {
        if (const auto misuse = Misuse(isUnderstood)) {
            return StopWith(ExitStatus::WrongUse, *misuse);
        }
        const QString busName = parser.isSet(u"bus"_s) ? parser.value(u"bus"_s) : u"system"_s;
        const auto bus = BusNamed(busName);
        if (!bus) {
            return StopWith(
                ExitStatus::WrongUse,
                u"There is no message bus called \"%1\"; it is system or session."_s.arg(busName));
        }
        WorkOptions options {.start = {.configFolder = parser.value(u"config"_s),
                                       .opensDatabase = false,
                                       .bus = *bus},
                             .asJson = parser.isSet(u"json"_s),
                             .isTrial = parser.isSet(u"dry-run"_s),
                             .isYes = parser.isSet(u"yes"_s),
                             .onlyLooks = MayOnlyLook()};
        if (parser.isSet(u"dsn"_s)) {
            options.start.dataSource = parser.value(u"dsn"_s);
        }
        Work work(options, terminal);
        const auto ended = command->run(work, Given(parser));
        if (!ended && ended.error().status == ExitStatus::Done) {
            work.Print(Performed {}, ended.error().text);
            return {};
        }
        return ended;
    }

    const QStringList arguments;
    const qsizetype place; // of the command's first word
    const Command *const command;
    const QString version;
    Terminal &terminal;
    QCommandLineParser parser;
};

} // namespace

ExitStatus RunCommandLine(const QStringList &arguments, const QString &version, Terminal &terminal)
{
    const auto ended = CommandLine(arguments, version, terminal).Run();
    if (!ended && !ended.error().text.isEmpty()) {
        terminal.Tell(ended.error().text);
    }
    if (!terminal.Flush()) {
        terminal.Tell(u"The output could not be written."_s);
        return ended ? ExitStatus::Failed : ended.error().status;
    }
    return ended ? ExitStatus::Done : ended.error().status;
}
