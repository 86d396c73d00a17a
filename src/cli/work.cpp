#include "cli/work.h"

#include "base/day.h"
#include "cli/plain_text.h"
#include "db/data_source.h"
#include "db/query.h"
#include "db/schema_version.h"
#include "startup/rights.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

// Each "column=value" of a row.
QJsonObject JsonOf(const QStringList &values)
{
    QJsonObject object;
    for (const QString &value : values) {
        object.insert(value.section(u'=', 0, 0), value.section(u'=', 1));
    }
    return object;
}

QJsonArray JsonOf(const QList<Change> &changes)
{
    QJsonArray array;
    for (const Change &change : changes) {
        array.append(QJsonObject {{u"table"_s, change.table},
                                  {u"key"_s, change.key},
                                  {u"before"_s, JsonOf(change.before)},
                                  {u"after"_s, JsonOf(change.after)}});
    }
    return array;
}

QString LineOf(const Change &change)
{
    const QString row = u"%1 %2: "_s.arg(change.table, change.key);
    if (change.before.isEmpty()) {
        return row + u"new, "_s + change.after.join(u", "_s);
    }
    if (change.after.isEmpty()) {
        return row + u"removed, "_s + change.before.join(u", "_s);
    }
    QStringList columns;
    for (qsizetype i = 0; i < change.after.size(); ++i) {
        columns << u"%1 -> %2"_s.arg(change.before.value(i), change.after[i].section(u'=', 1));
    }
    return row + columns.join(u", "_s);
}

} // namespace

Stop StopOf(ActionId id, const Outcome &outcome)
{
    switch (outcome.state) {
    case Outcome::State::Refused:
        return {ExitStatus::Refused, InWords(id, outcome)};
    case Outcome::State::NotDone:
        return {ExitStatus::Failed, InWords(id, outcome)};
    default:
        return {ExitStatus::Uncertain, InWords(id, outcome)};
    }
}

Change
ChangeBetween(const QString &table, const QString &key, QStringList before, QStringList after)
{
    for (qsizetype i = qMin(before.size(), after.size()) - 1; i >= 0; --i) {
        if (before[i] == after[i]) {
            before.removeAt(i);
            after.removeAt(i);
        }
    }
    return {table, key, before, after};
}

Work::Work(const WorkOptions &given, Terminal &speech)
    : options(given)
    , terminal(speech)
    , program(options.start)
{
    terminal.Answer({.isYes = options.isYes, .isTrial = options.isTrial});
    program.connection.OnSettled([this](bool heard) {
        allHeard = allHeard && heard;
        untilSettled.quit();
    });
}

Work::~Work()
{
    database.Close();
    program.connection.OnSettled([](bool) {});
    program.connection.Disconnect();
}

Or<Currency> Work::CurrencyNow() const
{
    for (const ConfigKeyId key : {ConfigKeyId::Base, ConfigKeyId::Price}) {
        if (const auto problem = Settings().Problem(key)) {
            return StopWith(ExitStatus::Failed, TextOf(*problem));
        }
    }
    return CurrentCurrency(Settings());
}

AccountMoment Work::AccountsNow() const
{
    return {Today(), Settings().ReadAmount(values::kTrafPrice)};
}

Or<void> Work::OpenDatabase()
{
    if (isOpen) {
        return {};
    }
    if (program.dataSource.isEmpty()) {
        const auto problem = Settings().Problem(ConfigKeyId::Base);
        return StopWith(ExitStatus::Failed,
                        problem ? TextOf(*problem)
                                : u"The settings name no data source; see --config and --dsn."_s);
    }
    database.Open(program.dataSource);
    const auto version = Await(OpenedSchemaVersion);
    if (!version) {
        const QString reason = version.error().kind == Failure::Kind::NewerSchema
            ? version.error().text
            : u"The data source \"%1\" cannot be opened. %2\n%3"_s.arg(
                program.dataSource,
                MissingSourceAdvice(program.dataSource),
                version.error().InWords());
        return StopWith(ExitStatus::Failed, reason);
    }
    if (AgeOf(*version) == SchemaAge::Older) {
        terminal.Tell(OlderSchemaText(*version, program.dataSource));
    }
    isOpen = true;
    return {};
}

Or<void> Work::MayChange() const
{
    if (options.onlyLooks && !options.isTrial) {
        return StopWith(ExitStatus::Refused, OnlyLooksText());
    }
    return {};
}

bool Work::IsWanted(const Question &question)
{
    return question.destroys ? terminal.AskToDestroy(question.text, question.goes)
                             : terminal.Ask(question.text);
}

Or<void> Work::Confirm(const Question &question)
{
    if (IsWanted(question)) {
        return {};
    }
    return StopWith(ExitStatus::Refused,
                    terminal.IsUnanswered() ? QString() : u"Nothing was changed."_s);
}

Or<Performed> Work::Perform(const Action &action, Patience patience)
{
    const bool isTrial = options.isTrial;
    if (!isTrial) {
        program.connection.TryConnect();
    }
    const auto outcome = AwaitAnswered(
        [&](const Answers &answers) {
            return [action, answers, isTrial, link = program.connection.Link()] {
                return isTrial ? TryAction(action, answers)
                               : RunAction(action, answers, link.get());
            };
        },
        [](const Outcome &given) {
            return given.state == Outcome::State::NeedsAnswers ? given.questions
                                                               : QList<Question>();
        },
        patience);
    if (!outcome) {
        return tl::unexpected(outcome.error());
    }
    if (!outcome->IsDone()) {
        return tl::unexpected(StopOf(action.id, *outcome));
    }
    return Performed {outcome->changes, ServiceWord(action.id, outcome->serviceTold)};
}

QString Work::ServiceWord(ActionId id, bool serviceTold)
{
    const auto link = program.connection.Link();
    if (options.isTrial || !KindOf(id).isEnforced || (link && !serviceTold)) {
        return {};
    }
    if (!link) {
        return u"not reached"_s;
    }
    while (link->IsTelling()) {
        untilSettled.exec();
    }
    if (!allHeard) {
        terminal.Tell(u"The accounting service did not hear of it; it will find it in the "
                      "database."_s);
    }
    return allHeard ? u"told"_s : u"not heard"_s;
}

void Work::Print(const Table &table)
{
    terminal.Print(options.asJson ? JsonText(JsonOf(table)) : TextOf(table));
}

void Work::Print(const QList<Column> &columns, const Cells &row)
{
    terminal.Print(options.asJson ? JsonText(JsonOf(columns, row)) : TextOf(columns, row));
}

void Work::PrintLine(const QString &text)
{
    terminal.Print(PlainText(text) + u'\n');
}

void Work::Print(const Performed &performed, const QString &sentence, const QJsonObject &more)
{
    if (options.asJson) {
        QJsonObject whole = more;
        whole.insert(u"dryRun"_s, options.isTrial);
        whole.insert(u"changes"_s, JsonOf(performed.changes));
        whole.insert(u"service"_s,
                     performed.service.isEmpty() ? QJsonValue() : QJsonValue(performed.service));
        terminal.Print(JsonText(whole));
        return;
    }
    if (!options.isTrial) {
        PrintLine(sentence);
        return;
    }
    QString lines;
    for (const Change &change : performed.changes) {
        lines += PlainText(LineOf(change)) + u'\n';
    }
    terminal.Print(lines + u"Nothing was written (--dry-run).\n"_s);
}
