#include "reports/query_check.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(QueryCheck)
};

struct Token
{
    enum class Kind { Word, Text, Sign };
    Kind kind;
    QStringView text;
    qsizetype at; // where it begins in the query
    int depth; // how many parentheses are open around it

    [[nodiscard]] bool Is(QStringView word) const
    {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
};

bool IsWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

constexpr qsizetype kDayLiteralLength = 12; // #2026/11/21#

bool IsDayLiteral(QStringView text)
{
    static const QRegularExpression kShape(u"^#\\d{4}/\\d{2}/\\d{2}#$"_s);
    return kShape.match(text.toString()).hasMatch();
}

std::vector<Token> TokensOf(QStringView query)
{
    std::vector<Token> tokens;
    int depth = 0;
    for (qsizetype at = 0; at < query.size();) {
        const QChar c = query[at];
        qsizetype end = at + 1;
        auto kind = Token::Kind::Sign;
        if (c == u'\'' || c == u'"' || c == u'`') {
            const auto closing = query.indexOf(c, at + 1);
            end = closing < 0 ? query.size() : closing + 1;
            kind = Token::Kind::Text;
        } else if (c == u'#' && IsDayLiteral(query.mid(at, kDayLiteralLength))) {
            end = at + kDayLiteralLength;
            kind = Token::Kind::Text;
        } else if (IsWordCharacter(c)) {
            while (end < query.size() && IsWordCharacter(query[end])) {
                ++end;
            }
            kind = Token::Kind::Word;
        }
        depth -= c == u')' ? 1 : 0;
        if (!c.isSpace()) {
            tokens.push_back({kind, query.sliced(at, end - at), at, depth});
        }
        depth += c == u'(' ? 1 : 0;
        at = end;
    }
    return tokens;
}

const QSet<QString> &WordsThatDo()
{
    static const QSet<QString> kWords {
        u"alter"_s,   u"analyze"_s, u"attach"_s,   u"begin"_s,     u"call"_s,    u"commit"_s,
        u"copy"_s,    u"create"_s,  u"delete"_s,   u"detach"_s,    u"do"_s,      u"drop"_s,
        u"exec"_s,    u"execute"_s, u"explain"_s,  u"grant"_s,     u"handler"_s, u"insert"_s,
        u"install"_s, u"into"_s,    u"listen"_s,   u"load"_s,      u"lock"_s,    u"merge"_s,
        u"notify"_s,  u"pragma"_s,  u"prepare"_s,  u"procedure"_s, u"reindex"_s, u"rename"_s,
        u"reset"_s,   u"revoke"_s,  u"rollback"_s, u"set"_s,       u"share"_s,   u"truncate"_s,
        u"update"_s,  u"vacuum"_s};
    return kWords;
}

// Words that may stand before an opening parenthesis: harmless functions and the grammar's own.
const QSet<QString> &WordsBeforeParentheses()
{
    static const QSet<QString> kWords {
        u"abs"_s,       u"all"_s,      u"and"_s,     u"any"_s,       u"as"_s,       u"avg"_s,
        u"between"_s,   u"by"_s,       u"case"_s,    u"cast"_s,      u"coalesce"_s, u"concat"_s,
        u"count"_s,     u"distinct"_s, u"else"_s,    u"except"_s,    u"exists"_s,   u"from"_s,
        u"having"_s,    u"ifnull"_s,   u"in"_s,      u"intersect"_s, u"join"_s,     u"length"_s,
        u"like"_s,      u"lower"_s,    u"max"_s,     u"min"_s,       u"not"_s,      u"nullif"_s,
        u"on"_s,        u"or"_s,       u"replace"_s, u"round"_s,     u"select"_s,   u"substr"_s,
        u"substring"_s, u"sum"_s,      u"then"_s,    u"trim"_s,      u"union"_s,    u"upper"_s,
        u"using"_s,     u"values"_s,   u"when"_s,    u"where"_s};
    return kWords;
}

std::optional<QString> TokenProblem(const Token &token, const Token *next)
{
    if (token.kind == Token::Kind::Text) {
        const bool open = token.text.size() < 2 || token.text.back() != token.text.front();
        if (open) {
            return Words::tr("a quoted text has no end");
        }
        return token.text.contains(u'\\')
            ? std::optional(Words::tr("a quoted text holds a back-slash"))
            : std::nullopt;
    }
    if (token.kind == Token::Kind::Word) {
        const QString word = token.text.toString().toLower();
        if (WordsThatDo().contains(word)) {
            return Words::tr("a report only reads, but its query says \"%1\"").arg(token.text);
        }
        const bool called = next != nullptr && next->text == u"(" && !word.front().isDigit();
        if (called && !WordsBeforeParentheses().contains(word)) {
            return Words::tr("the function \"%1\" is not one that a report's query may use")
                .arg(token.text);
        }
        return std::nullopt;
    }
    if (QStringView(u"?$@:\\{}[]~#").contains(token.text)) {
        return Words::tr("the sign %1 is not one that a report's query may use").arg(token.text);
    }
    const bool touching = next != nullptr && next->at == token.at + 1;
    if (touching
        && ((token.text == u"-" && next->text == u"-")
            || (token.text == u"/" && next->text == u"*"))) {
        return Words::tr("a query holds no comments; write them outside it");
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> QueryProblem(const QString &query)
{
    const auto tokens = TokensOf(query);
    if (tokens.empty()) {
        return Words::tr("the query is empty");
    }
    if (!tokens.front().Is(u"select") && !tokens.front().Is(u"with")) {
        return Words::tr("a report's query begins with SELECT, not with \"%1\"")
            .arg(tokens.front().text);
    }
    for (size_t place = 0; place < tokens.size(); ++place) {
        const bool last = place + 1 == tokens.size();
        const Token &token = tokens[place];
        if (token.text == u";" && !last) {
            return Words::tr("the query holds more than one statement");
        }
        if (token.depth < 0) {
            return Words::tr("a parenthesis is closed that was not opened");
        }
        if (auto problem = TokenProblem(token, last ? nullptr : &tokens[place + 1])) {
            return problem;
        }
    }
    const Token &end = tokens.back();
    return end.depth > 0 || end.text == u"("
        ? std::optional(Words::tr("a parenthesis is not closed"))
        : std::nullopt;
}

QString WithoutOrder(const QString &query)
{
    auto tokens = TokensOf(query);
    qsizetype end = query.size();
    if (!tokens.empty() && tokens.back().text == u";") {
        end = tokens.back().at;
        tokens.pop_back();
    }
    for (size_t place = tokens.size(); place-- > 0;) {
        const Token &token = tokens[place];
        if (token.depth > 0) {
            continue;
        }
        if (token.Is(u"limit") || token.Is(u"offset") || token.Is(u"fetch")) {
            break;
        }
        if (token.Is(u"order")) {
            end = token.at;
            break;
        }
    }
    return query.left(end).trimmed();
}
