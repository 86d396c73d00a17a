// What every command works with: the settings, the database, the service, and where it speaks.
#pragma once

#include "access/account_rules.h"
#include "accounts/currency.h"
#include "actions/action.h"
#include "cli/stop.h"
#include "cli/table.h"
#include "cli/terminal.h"
#include "db/session_thread.h"
#include "startup/start_up.h"

#include <QEventLoop>
#include <QJsonObject>

#include <optional>
#include <type_traits>
#include <utility>

struct WorkOptions
{
    StartUpOptions start; // the database is opened when a command wants it
    bool asJson = false;
    bool isTrial = false; // --dry-run
    bool isYes = false;
    bool onlyLooks = false; // nothing may be changed (startup/rights.h)
};

// What became of an action that was done, or of a trial of one.
struct Performed
{
    QList<Change> changes;
    QString service; // "told", "not heard", "not reached"; empty where there was nothing to tell
};

// Why an action that is neither done nor has questions ends the command.
[[nodiscard]] Stop StopOf(ActionId id, const Outcome &outcome);

// A row that was edited, by what its values were and are: "column=value" of each column, in one order.
// Those that stay the same are left out; no values stand for a row that is not there.
[[nodiscard]] Change
ChangeBetween(const QString &table, const QString &key, QStringList before, QStringList after);

class Work
{
public:
    using Patience = SessionThread::Patience;

    Work(const WorkOptions &options, Terminal &terminal);
    ~Work();
    Work(const Work &) = delete;
    Work &operator=(const Work &) = delete;

    [[nodiscard]] const ConfigStore &Settings() const { return program.settings; }
    [[nodiscard]] const StartedProgram &Program() const { return program; }
    [[nodiscard]] const QDBusConnection &Bus() const { return options.start.bus; }
    [[nodiscard]] Terminal &Speech() { return terminal; }
    [[nodiscard]] bool IsTrial() const { return options.isTrial; }
    [[nodiscard]] bool IsJson() const { return options.asJson; }

    // Refused when the settings cannot be read: money would be shown and stored by a rate that nobody
    // chose.
    [[nodiscard]] Or<Currency> CurrencyNow() const;

    // What the figures of accounts rest on beside the database.
    [[nodiscard]] AccountMoment AccountsNow() const;

    // Refused for whoever may only look. A trial changes nothing, so that everybody may make one.
    [[nodiscard]] Or<void> MayChange() const;

    // Opens the database, once; a schema that is older is told.
    [[nodiscard]] Or<void> OpenDatabase();

    // What `work` reads, run on the session's thread with the database open. It captures by value: where
    // its call does not answer, it is given up.
    template <typename Function>
    [[nodiscard]] auto Read(Function work, Patience patience = Patience::Bounded)
        -> Or<typename std::invoke_result_t<Function>::value_type>
    {
        if (const auto opened = OpenDatabase(); !opened) {
            return tl::unexpected(opened.error());
        }
        return OrStop(Await(std::move(work), patience));
    }

    // Has the action done as the windows do: its questions are asked, it is run again with the answers,
    // and the service hears of it. With --dry-run nothing of it is kept and nobody hears.
    [[nodiscard]] Or<Performed> Perform(const Action &action,
                                        Patience patience = Patience::Bounded);

    // What `work` gives on the session's thread. With --dry-run the questions that it comes back with
    // are told and taken for answered by Yes.
    template <typename WorkWith, typename QuestionsOf>
    [[nodiscard]] auto AwaitAnswered(const WorkWith &workWith,
                                     const QuestionsOf &questionsOf,
                                     Patience patience = Patience::Bounded)
        -> Or<std::invoke_result_t<std::invoke_result_t<WorkWith, const Answers &>>>
    {
        if (const auto ready = MayChange().and_then([this] { return OpenDatabase(); }); !ready) {
            return tl::unexpected(ready.error());
        }
        Answers answers;
        while (true) {
            auto value = Await(workWith(std::as_const(answers)), patience);
            const QList<Question> questions = questionsOf(std::as_const(value));
            if (questions.isEmpty()) {
                return value;
            }
            for (const Question &question : questions) {
                answers.insert(question.key, IsWanted(question));
            }
            if (terminal.IsUnanswered()) {
                return tl::unexpected(Stop {ExitStatus::Refused, {}});
            }
        }
    }

    // Asks before an action is begun. A No ends the command.
    [[nodiscard]] Or<void> Confirm(const Question &question);

    // Prints what a command tells, in the form that is wanted.
    void Print(const Table &table);
    void Print(const QList<Column> &columns, const Cells &row);
    void PrintLine(const QString &text); // for people

    // Prints what became of an action: `sentence` says it to people in the past tense; `more` is for
    // programs. Of a trial the rows that would change.
    void Print(const Performed &performed, const QString &sentence, const QJsonObject &more = {});

private:
    template <typename Function>
    [[nodiscard]] std::invoke_result_t<Function> Await(Function work,
                                                       Patience patience = Patience::Bounded)
    {
        std::optional<std::invoke_result_t<Function>> value;
        QEventLoop loop;
        database.Start(
            &loop,
            std::move(work),
            [&](std::invoke_result_t<Function> given) {
                value.emplace(std::move(given));
                loop.quit();
            },
            patience);
        loop.exec();
        return *std::move(value);
    }

    [[nodiscard]] bool IsWanted(const Question &question);
    [[nodiscard]] QString ServiceWord(ActionId id, bool serviceTold);

    const WorkOptions options;
    Terminal &terminal;
    StartedProgram program;
    SessionThread database;
    QEventLoop untilSettled; // while it is not known whether the service heard
    bool isOpen = false;
    bool allHeard = true;
};
