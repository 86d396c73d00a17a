#include "reports/query_grammar.h"

#include "db/dialect.h"
#include "reports/readable_names.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(QueryCheck)
};

using Kind = QueryToken::Kind;

// Words of the grammar, which are no names unless they stand in quotes.
bool IsKeyword(const QString &word)
{
    static const QSet<QString> kKeywords {
        u"all"_s,    u"and"_s,    u"as"_s,     u"asc"_s,     u"between"_s, u"by"_s,
        u"case"_s,   u"cast"_s,   u"cross"_s,  u"desc"_s,    u"else"_s,    u"end"_s,
        u"escape"_s, u"except"_s, u"exists"_s, u"false"_s,   u"fetch"_s,   u"from"_s,
        u"full"_s,   u"group"_s,  u"having"_s, u"in"_s,      u"inner"_s,   u"intersect"_s,
        u"is"_s,     u"join"_s,   u"left"_s,   u"like"_s,    u"limit"_s,   u"not"_s,
        u"null"_s,   u"offset"_s, u"on"_s,     u"or"_s,      u"order"_s,   u"outer"_s,
        u"right"_s,  u"select"_s, u"then"_s,   u"true"_s,    u"union"_s,   u"using"_s,
        u"when"_s,   u"where"_s,  u"with"_s,   u"distinct"_s};
    return kKeywords.contains(word);
}

// The dialects write these words another way, some as a catalogue of the engine's own.
bool IsSpelledByDialects(const QString &word)
{
    return std::ranges::any_of(kSqlite.spellings, [&](const Spelling &own) {
        return word == QLatin1StringView(own.word.data(), static_cast<qsizetype>(own.word.size()));
    });
}

} // namespace

std::optional<QString> QueryGrammar::Problem()
{
    const Query query = WholeQuery();
    Take(u";");
    if (Now().kind != Kind::End) {
        Unexpected();
    }
    for (const Reference &reference : query.open) {
        const QString name = reference.source.isEmpty()
            ? reference.column
            : reference.source + u'.' + reference.column;
        Fail(Words::tr("there is no column \"%1\" that a report may read").arg(name.left(80)));
    }
    return problem;
}

QueryGrammar::Query QueryGrammar::WholeQuery()
{
    const size_t known = common.size();
    std::vector<Reference> open;
    if (Take(u"with")) {
        do {
            const QString name = NewName();
            Expect(u"as");
            Expect(u"(");
            const Query query = WholeQuery();
            Expect(u")");
            common.push_back({name, query.outputs});
            open.insert(open.end(), query.open.begin(), query.open.end());
        } while (Take(u","));
    }
    Query query = Selects();
    query.open.insert(query.open.end(), open.begin(), open.end());
    common.resize(known);
    return query;
}

// What a union is ordered by stands behind its last SELECT, and may be named by the first.
QueryGrammar::Query QueryGrammar::Selects()
{
    Scope first;
    Select(first);
    std::vector<Reference> open;
    while (TakeOneOf({u"union", u"except", u"intersect"})) {
        TakeOneOf({u"all", u"distinct"});
        Scope next;
        Select(next);
        const auto more = Unresolved(next);
        open.insert(open.end(), more.begin(), more.end());
    }
    if (Take(u"order")) {
        Expect(u"by");
        do {
            Expression(first);
            TakeOneOf({u"asc", u"desc"});
        } while (Take(u","));
    }
    Limit();
    const auto more = Unresolved(first);
    open.insert(open.end(), more.begin(), more.end());
    return {first.outputs, open};
}

void QueryGrammar::Select(Scope &scope)
{
    Expect(u"select");
    TakeOneOf({u"distinct", u"all"});
    do {
        Item(scope);
    } while (Take(u","));
    if (Take(u"from")) {
        do {
            Sources(scope);
        } while (Take(u","));
    }
    if (Take(u"where")) {
        Expression(scope);
    }
    scope.late = scope.references.size();
    if (Take(u"group")) {
        Expect(u"by");
        Expressions(scope);
    }
    if (Take(u"having")) {
        Expression(scope);
    }
}

void QueryGrammar::Item(Scope &scope)
{
    if (Now().IsSign(u"*")
        || (at + 2 < tokens.size() && tokens[at + 2].IsSign(u"*") && tokens[at + 1].IsSign(u"."))) {
        Fail(Words::tr("a report's query names its columns instead of *"));
    }
    const size_t start = at;
    Expression(scope);
    const bool isNamed = Take(u"as") || IsNameAhead();
    const bool isColumn = at == start + 1 || (at == start + 3 && tokens[start + 1].IsSign(u"."));
    if (isNamed) {
        scope.outputs.insert(NewName());
    } else if (isColumn && at > start) {
        scope.outputs.insert(tokens[at - 1].Plain());
    }
}

void QueryGrammar::Sources(Scope &scope)
{
    OneSource(scope);
    for (;;) {
        bool started = TakeOneOf({u"cross", u"inner"});
        if (!started && TakeOneOf({u"left", u"right", u"full"})) {
            Take(u"outer");
            started = true;
        }
        if (!started && !Now().IsWord(u"join")) {
            return;
        }
        Expect(u"join");
        OneSource(scope);
        JoinCondition(scope);
    }
}

void QueryGrammar::JoinCondition(Scope &scope)
{
    if (Take(u"on")) {
        Expression(scope);
    } else if (Take(u"using")) {
        Expect(u"(");
        do {
            scope.references.push_back({{}, ExpectName()});
        } while (Take(u","));
        Expect(u")");
    }
}

void QueryGrammar::OneSource(Scope &scope)
{
    if (Take(u"(")) {
        if (!IsQueryAhead()) {
            Sources(scope);
            Expect(u")");
            return;
        }
        const Query query = WholeQuery();
        scope.references.insert(scope.references.end(), query.open.begin(), query.open.end());
        Expect(u")");
        Take(u"as");
        scope.sources.push_back({NewName(), query.outputs});
        return;
    }
    const QString table = ExpectName();
    const Names *columns = ColumnsOf(table);
    if (columns == nullptr) {
        Fail(Words::tr("there is no table \"%1\" that a report may read").arg(table.left(80)));
        return;
    }
    const bool isRenamed = Take(u"as") || IsNameAhead();
    scope.sources.push_back({isRenamed ? NewName() : table, *columns});
}

// LIMIT 10 OFFSET 20, LIMIT 20, 10 or FETCH FIRST 10 ROWS ONLY.
void QueryGrammar::Limit()
{
    while (TakeOneOf({u"limit", u"offset", u"fetch"})) {
        TakeOneOf({u"first", u"next"});
        do {
            if (Now().kind != Kind::Number) {
                Unexpected();
                return;
            }
            ++at;
        } while (Take(u","));
        if (TakeOneOf({u"row", u"rows"})) {
            Take(u"only");
        }
    }
}

void QueryGrammar::Expressions(Scope &scope)
{
    do {
        Expression(scope);
    } while (Take(u","));
}

// Which operator binds stronger is left to the engine.
void QueryGrammar::Expression(Scope &scope)
{
    do {
        while (TakeOneOf({u"-", u"+", u"not"})) { }
        Operand(scope);
        Conditions(scope);
    } while (TakeOperator());
}

// IS NULL and IN, which stand behind what they ask of.
void QueryGrammar::Conditions(Scope &scope)
{
    for (;;) {
        if (Take(u"is")) {
            Take(u"not");
            Expect(u"null");
            continue;
        }
        const bool notIn = Now().IsWord(u"not") && tokens[at + 1].IsWord(u"in");
        at += notIn ? 1 : 0;
        if (!Take(u"in")) {
            return;
        }
        Expect(u"(");
        InParentheses(scope);
    }
}

bool QueryGrammar::TakeOperator()
{
    const bool negated = Now().IsWord(u"not")
        && (tokens[at + 1].IsWord(u"like") || tokens[at + 1].IsWord(u"between"));
    at += negated ? 1 : 0;
    if (TakeOneOf({u"and", u"or", u"like", u"between", u"escape"})) {
        return true;
    }
    if (Now().kind != Kind::Sign) {
        return false;
    }
    if (tokens[at + 1].kind == Kind::Sign && tokens[at + 1].Touches(Now())) {
        const QString both = Now().text.toString() + tokens[at + 1].text;
        if (QStringList {u"<="_s, u">="_s, u"<>"_s, u"!="_s, u"||"_s}.contains(both)) {
            at += 2;
            return true;
        }
    }
    return TakeOneOf({u"=", u"<", u">", u"+", u"-", u"*", u"/", u"%"});
}

void QueryGrammar::Operand(Scope &scope)
{
    if (Now().kind == Kind::Number || Now().kind == Kind::Text) {
        ++at;
    } else if (Take(u"(")) {
        InParentheses(scope);
    } else if (Take(u"case")) {
        Case(scope);
    } else if (Take(u"cast")) {
        Cast(scope);
    } else if (Take(u"exists")) {
        Expect(u"(");
        SubQuery(scope);
        Expect(u")");
    } else if (IsNameAhead()) {
        Named(scope);
    } else if (!TakeOneOf({u"null", u"true", u"false"})) {
        Unexpected();
    }
}

void QueryGrammar::Named(Scope &scope)
{
    const QueryToken &first = Now();
    ++at;
    if (Take(u"(")) {
        Call(scope, first);
    } else if (Take(u".")) {
        scope.references.push_back({first.Plain(), ExpectName()});
    } else if (!first.IsWord(u"current_date")) {
        scope.references.push_back({{}, first.Plain()});
    }
}

void QueryGrammar::InParentheses(Scope &scope)
{
    if (IsQueryAhead()) {
        SubQuery(scope);
    } else {
        Expressions(scope);
    }
    Expect(u")");
}

void QueryGrammar::Call(Scope &scope, const QueryToken &function)
{
    const QString name = function.Plain();
    if (!IsReadingFunction(name)) {
        Fail(Words::tr("the function \"%1\" is not one that a report's query may use")
                 .arg(name.left(80)));
        return;
    }
    if (name != u"count" || !Take(u"*")) {
        TakeOneOf({u"distinct", u"all"});
        Expressions(scope);
    }
    Expect(u")");
}

void QueryGrammar::Case(Scope &scope)
{
    if (!Now().IsWord(u"when")) {
        Expression(scope);
    }
    while (Take(u"when")) {
        Expression(scope);
        Expect(u"then");
        Expression(scope);
    }
    if (Take(u"else")) {
        Expression(scope);
    }
    Expect(u"end");
}

void QueryGrammar::Cast(Scope &scope)
{
    Expect(u"(");
    Expression(scope);
    Expect(u"as");
    const size_t start = at;
    while (TakeOneOf({u"integer",
                      u"int",
                      u"bigint",
                      u"smallint",
                      u"real",
                      u"float",
                      u"double",
                      u"decimal",
                      u"numeric",
                      u"char",
                      u"character",
                      u"varchar",
                      u"text",
                      u"date",
                      u"datetime",
                      u"signed",
                      u"unsigned",
                      u"precision",
                      u"varying"})) { }
    if (at == start) {
        Unexpected();
    }
    if (Take(u"(")) {
        Scope none; // numbers only: a name in it is one that nobody knows
        Expressions(none);
        scope.references.insert(
            scope.references.end(), none.references.begin(), none.references.end());
        Expect(u")");
    }
    Expect(u")");
}

void QueryGrammar::SubQuery(Scope &scope)
{
    const Query query = WholeQuery();
    scope.references.insert(scope.references.end(), query.open.begin(), query.open.end());
}

std::vector<QueryGrammar::Reference> QueryGrammar::Unresolved(const Scope &scope)
{
    std::vector<Reference> open;
    for (size_t place = 0; place < scope.references.size(); ++place) {
        const Reference &reference = scope.references[place];
        const bool known = place >= scope.late && reference.source.isEmpty()
            && scope.outputs.contains(reference.column);
        const auto source = std::ranges::find_if(scope.sources, [&](const Source &one) {
            return reference.source.isEmpty() ? one.columns.contains(reference.column)
                                              : one.name == reference.source;
        });
        const bool found = source != scope.sources.end();
        if (!known && (!found || !source->columns.contains(reference.column))) {
            open.push_back(reference);
        }
    }
    return open;
}

const QueryGrammar::Names *QueryGrammar::ColumnsOf(const QString &table) const
{
    const auto query =
        std::ranges::find_if(common, [&](const Source &one) { return one.name == table; });
    return query != common.end() ? &query->columns : ReadableColumns(table);
}

bool QueryGrammar::IsQueryAhead() const
{
    return Now().IsWord(u"select") || Now().IsWord(u"with");
}

bool QueryGrammar::IsNameAhead() const
{
    return Now().kind == Kind::Name || (Now().kind == Kind::Word && !IsKeyword(Now().Plain()));
}

bool QueryGrammar::Take(QStringView wordOrSign)
{
    const bool taken = Now().IsWord(wordOrSign) || Now().IsSign(wordOrSign);
    at += taken ? 1 : 0;
    return taken;
}

bool QueryGrammar::TakeOneOf(std::initializer_list<QStringView> words)
{
    return std::ranges::any_of(words, [this](QStringView word) { return Take(word); });
}

void QueryGrammar::Expect(QStringView wordOrSign)
{
    if (!Take(wordOrSign)) {
        Unexpected();
    }
}

// A name that the query gives, which must not be read as anything else.
QString QueryGrammar::NewName()
{
    const QString name = ExpectName();
    if (IsSpelledByDialects(name)) {
        Fail(Words::tr("\"%1\" cannot be a name in a report's query").arg(name.left(80)));
    }
    return name;
}

QString QueryGrammar::ExpectName()
{
    if (!IsNameAhead()) {
        Unexpected();
        return {};
    }
    return tokens[at++].Plain();
}

void QueryGrammar::Unexpected()
{
    Fail(Now().kind == Kind::End
             ? Words::tr("the query ends too early")
             : Words::tr("\"%1\" cannot stand there in a report's query").arg(Now().text.left(80)));
}

void QueryGrammar::Fail(const QString &text)
{
    problem = problem.value_or(text);
    at = tokens.size() - 1;
}
