#include "db/translation.h"

#include "base/day.h"
#include "base/text.h"
#include "db/number_chain.h"

#include <algorithm>
#include <cstdio>

namespace {

// Column and table names that at least one engine or its kin reserves.
constexpr std::string_view kReserved[] = {"current_time", "groups", "usage", "virtual"};

// The one date-and-time column.
constexpr std::string_view kStampColumn = "date";

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsWordStart(char c)
{
    return (Lower(c) >= 'a' && Lower(c) <= 'z') || c == '_';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

class Translation
{
public:
    Translation(const Dialect &dialectUsed,
                std::string_view statement,
                const ParameterKinds &boundKinds,
                std::string &translated,
                ParameterChanges &wantedChanges)
        : dialect(dialectUsed)
        , in(statement)
        , kinds(boundKinds)
        , out(translated)
        , changes(wantedChanges)
    { }

    void Run()
    {
        while (at < in.size()) {
            Token();
        }
    }

private:
    void Token()
    {
        const char c = in[at];
        if (c == '\'' || c == '"') {
            QuotedText(c);
        } else if (c == '`') {
            BackQuotedName();
        } else if (c == '#') {
            DateLiteral();
        } else if (IsWordStart(c)) {
            Word();
        } else if (c == '(' && LongChain()) {
            return;
        } else {
            if (c == '?') {
                ++parameter;
            }
            out += c;
            ++at;
        }
    }

    // Writes the chain that begins here as a list, if one does that is long.
    bool LongChain()
    {
        constexpr size_t kLong = 16;
        const auto chain = NumberChainAt(in, at);
        if (!chain || chain->numbers.size() < kLong) {
            return false;
        }
        const bool isEqual = chain->comparison == "=";
        const bool isOther = chain->comparison == "<>";
        if ((isEqual && !chain->isAnd) || (isOther && chain->isAnd)) {
            AppendList(*chain, isEqual ? " in (" : " not in (");
        } else if (isOther) {
            AppendEitherOther(*chain);
        } else {
            return false;
        }
        at = chain->end;
        return true;
    }

    void AppendList(const NumberChain &chain, std::string_view opening)
    {
        out += '(';
        out += Translate(dialect, chain.column);
        out += opening;
        for (const auto number : chain.numbers) {
            out += out.back() == '(' ? "" : ",";
            out += number;
        }
        out += "))";
    }

    // (a <> 1 OR a <> 2 OR ...) is true of whatever is there as soon as two of the numbers differ.
    void AppendEitherOther(const NumberChain &chain)
    {
        const auto first = chain.numbers.front();
        const auto other =
            std::find_if(chain.numbers.begin(), chain.numbers.end(), [first](auto number) {
                return AmountFrom(number) != AmountFrom(first);
            });
        const std::string column = Translate(dialect, chain.column);
        out += '(' + column + " <> " + std::string(first);
        if (other != chain.numbers.end()) {
            out += " or " + column + " <> " + std::string(*other);
        }
        out += ')';
    }

    void QuotedText(char quote)
    {
        const auto end = std::min(in.find(quote, at + 1), in.size() - 1);
        out += in.substr(at, end - at + 1);
        at = end + 1;
    }

    void BackQuotedName()
    {
        const auto end = std::min(in.find('`', at + 1), in.size());
        const auto name = in.substr(at + 1, end - at - 1);
        const auto start = out.size();
        out += dialect.identifierQuote;
        for (const char c : name) {
            out += Lower(c);
            if (c == dialect.identifierQuote) {
                out += c; // doubled, or the name would end there
            }
        }
        out += dialect.identifierQuote;
        at = std::min(end + 1, in.size());
        CompareByDayAfter(name, start);
    }

    void Word()
    {
        auto end = at;
        while (end < in.size() && (IsWordStart(in[end]) || IsDigit(in[end]))) {
            ++end;
        }
        const auto word = in.substr(at, end - at);
        const auto start = out.size();
        AppendLower(word);
        const auto lower = std::string_view(out).substr(start);
        at = end;
        if (lower == "true" || lower == "false") {
            const char digit = lower == "true" ? '1' : '0';
            out.resize(start);
            out += digit;
        } else if (const Spelling *own = SpellingOf(lower); own != nullptr) {
            out.resize(start);
            out += own->written;
        } else if (std::find(std::begin(kReserved), std::end(kReserved), lower)
                   != std::end(kReserved)) {
            out.insert(start, 1, dialect.identifierQuote);
            out += dialect.identifierQuote;
        } else {
            CompareByDayAfter(word, start);
        }
    }

    // Null for a word that all engines write alike.
    [[nodiscard]] const Spelling *SpellingOf(std::string_view word) const
    {
        const auto found = std::find_if(dialect.spellings.begin(),
                                        dialect.spellings.end(),
                                        [word](const Spelling &own) { return own.word == word; });
        return found == dialect.spellings.end() ? nullptr : &*found;
    }

    void AppendLower(std::string_view name)
    {
        for (const char c : name) {
            out += Lower(c);
        }
    }

    void DateLiteral()
    {
        if (const auto day = DayLiteralAt(at); day.isValid()) {
            AppendDate(day);
            at += kDayLiteralLength;
        } else {
            out += in[at++];
        }
    }

    // The day of a literal #yyyy/mm/dd# that begins at `position`; an invalid date if none does.
    [[nodiscard]] QDate DayLiteralAt(size_t position) const
    {
        const auto text = in.substr(std::min(position, in.size()), kDayLiteralLength);
        const bool shaped = text.size() == kDayLiteralLength && text.front() == '#'
            && text[5] == '/' && text[8] == '/' && text.back() == '#';
        if (!shaped) {
            return {};
        }
        return ExistingDate({IntegerFrom(text.substr(1, 4)),
                             IntegerFrom(text.substr(6, 2)),
                             IntegerFrom(text.substr(9, 2))});
    }

    void AppendDate(QDate day)
    {
        char text[16];
        std::snprintf(text, sizeof text, "'%04d-%02d-%02d'", day.year(), day.month(), day.day());
        out += text;
    }

    // Called behind a name: where that is the date-and-time column and a day follows, the comparison
    // is written so that the day's whole 24 hours count as that day.
    void CompareByDayAfter(std::string_view name, size_t nameStart)
    {
        if (!IsStampColumn(name)) {
            return;
        }
        const auto operatorStart = in.find_first_not_of(' ', at);
        if (operatorStart == std::string_view::npos) {
            return;
        }
        const auto operatorEnd = std::min(in.find_first_not_of("<>=", operatorStart), in.size());
        const auto comparison = in.substr(operatorStart, operatorEnd - operatorStart);
        const auto operand = std::min(in.find_first_not_of(' ', operatorEnd), in.size());
        if (comparison.empty()) {
            return;
        }
        if (const auto day = DayLiteralAt(operand); day.isValid()) {
            CompareWithLiteral(comparison, day, QualifiedName(nameStart));
            at = operand + kDayLiteralLength;
        } else if (in.substr(operand, 3) == "(?)") {
            CompareWithParameter(comparison);
            at = operand + 3;
        }
    }

    static bool IsStampColumn(std::string_view name)
    {
        return std::equal(
            name.begin(), name.end(), kStampColumn.begin(), kStampColumn.end(), [](char a, char b) {
                return Lower(a) == b;
            });
    }

    // The name just written with its table, if one stands before it.
    [[nodiscard]] std::string QualifiedName(size_t nameStart) const
    {
        auto start = nameStart;
        while (start > 0 && (out[start - 1] == '.' || IsWordStart(out[start - 1]))) {
            --start;
        }
        return out.substr(start);
    }

    void CompareWithLiteral(std::string_view comparison, QDate day, const std::string &column)
    {
        if (comparison == "=") {
            out += " >= ";
            AppendDate(day);
            out += " and " + column + " < ";
            AppendDate(day.addDays(1));
            return;
        }
        const bool afterTheDay = comparison == ">" || comparison == "<=";
        AppendOperator(comparison);
        AppendDate(afterTheDay ? day.addDays(1) : day);
    }

    void CompareWithParameter(std::string_view comparison)
    {
        const auto index = static_cast<size_t>(parameter++);
        const bool afterTheDay = comparison == ">" || comparison == "<=";
        if (kinds[index] == ParameterKind::Text) {
            changes[index] = ParameterChange::DayToStamp;
            out += ' ';
            out += comparison;
            out += " (?)";
            return;
        }
        changes[index] = afterTheDay ? ParameterChange::NextDay : ParameterChange::None;
        AppendOperator(comparison);
        out += "(?)";
    }

    // "After the day" begins with the next one, and "up to the day" ends before it.
    void AppendOperator(std::string_view comparison)
    {
        if (comparison == ">") {
            comparison = ">=";
        } else if (comparison == "<=") {
            comparison = "<";
        }
        out += ' ';
        out += comparison;
        out += ' ';
    }

    static constexpr size_t kDayLiteralLength = 12;

    const Dialect &dialect;
    std::string_view in;
    const ParameterKinds &kinds;
    std::string &out;
    ParameterChanges &changes;
    size_t at = 0;
    int parameter = 0;
};

// "UPDATE table SET what FROM STAGED rows WHERE which" as "UPDATE table JOIN STAGED rows ON which SET
// what"; an empty text for any other statement.
std::string JoinedBeforeSet(std::string_view statement)
{
    constexpr std::string_view kSet = " SET ";
    constexpr std::string_view kFrom = " FROM STAGED ";
    constexpr std::string_view kWhere = " WHERE ";
    const auto set = statement.find(kSet);
    const auto from = statement.find(kFrom, set);
    const auto where = statement.find(kWhere, from);
    if (!statement.starts_with("UPDATE ") || where == std::string_view::npos) {
        return {};
    }
    const auto rows = from + kFrom.size();
    std::string joined(statement.substr(0, set));
    joined += " JOIN STAGED ";
    joined += statement.substr(rows, where - rows);
    joined += " ON ";
    joined += statement.substr(where + kWhere.size());
    joined += statement.substr(set, from - set);
    return joined;
}

} // namespace

void Translate(const Dialect &dialect,
               std::string_view statement,
               const ParameterKinds &kinds,
               std::string &translated,
               ParameterChanges &changes)
{
    translated.clear();
    changes.fill(ParameterChange::None);
    const std::string joined = dialect.joinsBeforeSet ? JoinedBeforeSet(statement) : std::string();
    Translation(dialect, joined.empty() ? statement : joined, kinds, translated, changes).Run();
}

std::string Translate(const Dialect &dialect, std::string_view statement)
{
    std::string translated;
    ParameterChanges changes {};
    Translate(dialect, statement, ParameterKinds {}, translated, changes);
    return translated;
}
