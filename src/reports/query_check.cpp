#include "reports/query_check.h"

#include "reports/query_grammar.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(QueryCheck)
};

constexpr int kMostDepth = 50; // of parentheses

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

bool IsAscii(QStringView text)
{
    return std::ranges::all_of(text,
                               [](QChar c) { return c.unicode() >= u' ' && c.unicode() < 0x7f; });
}

std::optional<QString> QuotedProblem(const QueryToken &token)
{
    if (token.text.size() < 2 || token.text.back() != token.text.front()) {
        return Words::tr("a quoted text has no end");
    }
    if (token.text.contains(u'\\')) {
        return Words::tr("a quoted text holds a back-slash");
    }
    const QStringView inside = token.text.sliced(1).chopped(1);
    const bool isOdd = inside.isEmpty() || inside.contains(u'"') || inside.contains(u'`')
        || inside.contains(u'\'') || inside.contains(QChar::Null);
    return token.kind == QueryToken::Kind::Name && isOdd
        ? std::optional(Words::tr("%1 is not a name").arg(token.text.left(80)))
        : std::nullopt;
}

std::optional<QString> WordProblem(const QueryToken &token)
{
    static const QRegularExpression kNumber(u"^[0-9]+([.][0-9]+)?$"_s);
    const bool isOddNumber =
        token.kind == QueryToken::Kind::Number && !kNumber.match(token.text.toString()).hasMatch();
    if (isOddNumber || !IsAscii(token.text)) {
        return Words::tr("%1 is neither a word nor a number").arg(token.text.left(80));
    }
    return WordsThatDo().contains(token.text.toString().toLower())
        ? std::optional(Words::tr("a report only reads, but its query says \"%1\"").arg(token.text))
        : std::nullopt;
}

std::optional<QString> SignProblem(const QueryToken &token, const QueryToken &next)
{
    if (!QStringView(u"()+-*/%=<>!|.,;").contains(token.text)) {
        return Words::tr("the sign %1 is not one that a report's query may use").arg(token.text);
    }
    const bool opensComment =
        (token.text == u"-" && next.text == u"-") || (token.text == u"/" && next.text == u"*");
    return opensComment && next.Touches(token)
        ? std::optional(Words::tr("a query holds no comments; write them outside it"))
        : std::nullopt;
}

// Engines make a text of another kind of what touches a quotation mark: E'', U&"", _utf8'', "a""b".
bool IsQuoteTouched(const QueryToken &token, const QueryToken &next)
{
    const auto isLoose = [](const QueryToken &one) {
        return one.kind == QueryToken::Kind::Sign || one.kind == QueryToken::Kind::End;
    };
    return (token.IsQuoted() || next.IsQuoted()) && !isLoose(token) && !isLoose(next)
        && next.Touches(token);
}

std::optional<QString> TokenProblem(const QueryToken &token, const QueryToken &next)
{
    if (token.depth < 0) {
        return Words::tr("a parenthesis is closed that was not opened");
    }
    if (token.depth > kMostDepth) {
        return Words::tr("the query's parentheses are nested too deeply");
    }
    if (token.IsSign(u";") && next.kind != QueryToken::Kind::End) {
        return Words::tr("the query holds more than one statement");
    }
    if (IsQuoteTouched(token, next)) {
        return Words::tr("%1 needs a blank behind it").arg(token.text.left(80));
    }
    if (token.IsQuoted()) {
        return QuotedProblem(token);
    }
    return token.kind == QueryToken::Kind::Sign ? SignProblem(token, next) : WordProblem(token);
}

} // namespace

// Each of the two would be enough against what is known: the signs and words that are not taken
// anywhere, and the grammar, which takes only what it knows.
std::optional<QString> QueryProblem(const QString &query)
{
    const auto tokens = TokensOf(query);
    const QueryToken &first = tokens.front();
    if (first.kind == QueryToken::Kind::End) {
        return Words::tr("the query is empty");
    }
    if (!first.IsWord(u"select") && !first.IsWord(u"with")) {
        return Words::tr("a report's query begins with SELECT, not with \"%1\"")
            .arg(first.text.left(80));
    }
    for (size_t place = 0; place + 1 < tokens.size(); ++place) {
        if (auto problem = TokenProblem(tokens[place], tokens[place + 1])) {
            return problem;
        }
    }
    if (tokens.back().depth > 0) {
        return Words::tr("a parenthesis is not closed");
    }
    return QueryGrammar(tokens).Problem();
}

QString WithoutOrder(const QString &query)
{
    auto tokens = TokensOf(query);
    qsizetype end = query.size();
    tokens.pop_back();
    if (!tokens.empty() && tokens.back().IsSign(u";")) {
        end = tokens.back().at;
        tokens.pop_back();
    }
    for (size_t place = tokens.size(); place-- > 0;) {
        const QueryToken &token = tokens[place];
        if (token.depth > 0) {
            continue;
        }
        if (token.IsWord(u"limit") || token.IsWord(u"offset") || token.IsWord(u"fetch")) {
            break;
        }
        if (token.IsWord(u"order")) {
            end = token.at;
            break;
        }
    }
    return query.left(end).trimmed();
}
