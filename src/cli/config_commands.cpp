// The commands that begin with "config": the settings that the console and the service share.
#include "cli/command.h"
#include "cli/owners.h"
#include "cli/settings_work.h"
#include "config/value_rules.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongest = qsizetype {1024} * 1024; // bytes, more than any value has

const QList<Column> kColumns {
    {"name", "Name"}, {"value", "Value"}, {"meaning", "Meaning"}, {"file", "File"}};

// Nothing for a value that is missing.
using StoredText = Or<std::optional<QString>>;

StoredText ReadStored(const Work &work, const ValueRule &rule)
{
    const auto key = work.Settings().ReadKey(rule.value.key);
    if (!key) {
        return StopWith(ExitStatus::Failed, TextOf(key.error()));
    }
    if (key->IsOfAnotherKind(rule.value)) {
        return StopWith(ExitStatus::Failed,
                        u"%1 in %2 is to be a text in quotation marks."_s.arg(
                            FullNameOf(rule.value), work.Settings().FileOf(rule.value.key)));
    }
    return key->ReadText(rule.value, kLongest);
}

Cells CellsOf(const Work &work,
              const ValueRule &rule,
              const std::optional<QString> &text,
              bool hidesSecrets)
{
    const bool isHidden = hidesSecrets && rule.isSecret && text && !text->isEmpty();
    return {FullNameOf(rule.value),
            text ? Cell(isHidden ? u"***"_s : *text) : Cell(),
            QString::fromLatin1(rule.meaning),
            work.Settings().FileOf(rule.value.key)};
}

Or<const ValueRule *> RuleOf(const QString &name)
{
    const ValueRule *rule = FindValueRule(name);
    if (rule == nullptr) {
        return StopWith(
            ExitStatus::Refused,
            u"There is no value \"%1\"; \"tollbrook config list\" names them all."_s.arg(name));
    }
    return rule;
}

Or<void> ListValues(Work &work, const Given & /*given*/)
{
    Table table {kColumns, {}};
    Or<void> ended; // what cannot be read is told behind the others
    for (const ValueRule &rule : AllValueRules()) {
        const auto text = ReadStored(work, rule);
        if (!text && ended) {
            ended = tl::unexpected(text.error());
        }
        table.rows << CellsOf(work, rule, text.value_or(std::nullopt), true);
    }
    if (!work.IsJson()) { // the files would make the lines too long to be read
        table.columns.removeLast();
        for (Cells &row : table.rows) {
            row.removeLast();
        }
    }
    work.Print(table);
    return ended;
}

Or<void> GetValue(Work &work, const Given &given)
{
    const auto rule = RuleOf(given.Word(0));
    const auto text = rule ? ReadStored(work, **rule) : tl::unexpected(rule.error());
    if (!text) {
        return tl::unexpected(text.error());
    }
    if (!*text) {
        return StopWith(ExitStatus::Refused,
                        u"%1 is not set in %2."_s.arg(FullNameOf((*rule)->value),
                                                      work.Settings().FileOf((*rule)->value.key)));
    }
    if (work.IsJson()) {
        work.Print(kColumns, CellsOf(work, **rule, *text, false));
    } else {
        work.PrintLine(**text);
    }
    return {};
}

// The key's values, where the text may stand there.
Or<KeyReader> OpenFor(const Work &work, const ValueRule &rule, const QString &text)
{
    const QString name = FullNameOf(rule.value);
    if (rule.isPartOfMore) {
        return StopWith(
            ExitStatus::Refused,
            u"%1 means nothing without other values; the console's options set it."_s.arg(name));
    }
    if (const auto problem = CheckValue(rule, text)) {
        return StopWith(ExitStatus::Refused,
                        u"%1 in %2 %3. Nothing was changed."_s.arg(
                            name, work.Settings().FileOf(rule.value.key), *problem));
    }
    return ReadKeyToWrite(work, rule.value.key);
}

Or<void> SetValue(Work &work, const Given &given)
{
    const auto found = RuleOf(given.Word(0));
    if (!found) {
        return tl::unexpected(found.error());
    }
    const ValueRule &rule = **found;
    const QString text = given.Word(1);
    const auto key = OpenFor(work, rule, text);
    if (!key) {
        return tl::unexpected(key.error());
    }
    const auto before = key->ReadText(rule.value, kLongest); // a number in its place is replaced
    const auto shown = [&rule](const QString &value) -> QString {
        return u"value="_s + (rule.isSecret ? u"***"_s : value);
    };
    const auto written = WriteSettings(
        work, [&](const ConfigStore &settings) { return settings.WriteText(rule.value, text); });
    return written.map([&] {
        PrintSettings(work,
                      rule.value.key,
                      FullNameOf(rule.value),
                      before ? QStringList {shown(*before)} : QStringList {},
                      {shown(text)});
    });
}

} // namespace

Commands ConfigCommands()
{
    return {{"config list", "", "Lists the settings, with what they mean.", 0, 0, {}, ListValues},
            {"config get", "NAME", "Prints one of the settings.", 1, 1, {}, GetValue},
            {"config set", "NAME VALUE", "Changes one of the settings.", 2, 2, {}, SetValue}};
}
