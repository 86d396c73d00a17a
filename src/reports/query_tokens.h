// The words, names, texts and signs that a report's query is made of.
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

struct QueryToken
{
    // A name stands in " or `, a text in ' or is a day between two #. The last token is the End.
    enum class Kind { Word, Name, Text, Number, Sign, End };

    Kind kind = Kind::End;
    QStringView text;
    qsizetype at = 0; // where it begins in the query
    int depth = 0; // how many parentheses are open around it

    [[nodiscard]] bool IsWord(QStringView word) const
    {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
    [[nodiscard]] bool IsSign(QStringView sign) const { return kind == Kind::Sign && text == sign; }
    [[nodiscard]] bool IsQuoted() const { return kind == Kind::Name || kind == Kind::Text; }
    // Whether it begins where `former` ends, without a blank.
    [[nodiscard]] bool Touches(const QueryToken &former) const
    {
        return at == former.at + former.text.size();
    }
    // A word or name in lower case, without its quotes.
    [[nodiscard]] QString Plain() const;
};

// All of the query, the End included; a quoted text without an end reaches up to it.
[[nodiscard]] std::vector<QueryToken> TokensOf(QStringView query);
