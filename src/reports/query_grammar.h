// The part of the language of queries that a report may use, and no more: what is not of it is refused,
// however an engine would read it.
#pragma once

#include "reports/query_tokens.h"

#include <QSet>

#include <optional>

class QueryGrammar
{
public:
    // The tokens outlive it and end with the End.
    explicit QueryGrammar(const std::vector<QueryToken> &ofTokens) : tokens(ofTokens) { }

    // Why they are not one such query of readable tables; nothing when they are.
    [[nodiscard]] std::optional<QString> Problem();

private:
    using Names = QSet<QString>;

    // Something that columns are read from: a table, a query in parentheses, a query of WITH.
    struct Source
    {
        QString name;
        Names columns;
    };

    struct Reference
    {
        QString source; // empty for a column alone
        QString column;
    };

    // One SELECT, whose columns may be named before what they are read from.
    struct Scope
    {
        std::vector<Source> sources;
        std::vector<Reference> references;
        size_t late = 0; // the first reference behind WHERE, from where on outputs can be named
        Names outputs;
    };

    struct Query
    {
        Names outputs;
        std::vector<Reference> open; // for the query around it to know
    };

    Query WholeQuery();
    Query Selects();
    void Select(Scope &scope);
    void Item(Scope &scope);
    void Sources(Scope &scope);
    void JoinCondition(Scope &scope);
    void OneSource(Scope &scope);
    void Limit();
    void Expressions(Scope &scope);
    void Expression(Scope &scope);
    void Operand(Scope &scope);
    void Named(Scope &scope);
    void InParentheses(Scope &scope);
    void Call(Scope &scope, const QueryToken &function);
    void Case(Scope &scope);
    void Cast(Scope &scope);
    void Conditions(Scope &scope);
    void SubQuery(Scope &scope);
    [[nodiscard]] static std::vector<Reference> Unresolved(const Scope &scope);
    [[nodiscard]] const Names *ColumnsOf(const QString &table) const;

    [[nodiscard]] const QueryToken &Now() const { return tokens[at]; }
    [[nodiscard]] bool IsQueryAhead() const;
    [[nodiscard]] bool IsNameAhead() const;
    bool Take(QStringView wordOrSign);
    bool TakeOneOf(std::initializer_list<QStringView> words);
    bool TakeOperator();
    void Expect(QStringView wordOrSign);
    QString NewName();
    QString ExpectName();
    void Unexpected();
    void Fail(const QString &text);

    const std::vector<QueryToken> &tokens;
    size_t at = 0; // at the End once it has failed
    std::vector<Source> common; // the queries of WITH
    std::optional<QString> problem;
};
