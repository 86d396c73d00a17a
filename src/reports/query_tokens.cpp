#include "reports/query_tokens.h"

#include "base/day.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

using Kind = QueryToken::Kind;

// Engines take blanks beyond these for letters.
bool IsBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

bool IsWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

constexpr qsizetype kDayLiteralLength = 12; // #2026/11/21#

// Only a day that the dialect writes as a date, the next one where it does not exist: what it leaves as
// it stands is a comment to one of the engines.
bool IsDayLiteral(QStringView text)
{
    static const QRegularExpression kShape(u"^#(\\d{4})/(\\d{2})/(\\d{2})#$"_s);
    const auto parts = kShape.match(text.toString());
    return parts.hasMatch()
        && ExistingDate({parts.capturedView(1).toInt(),
                         parts.capturedView(2).toInt(),
                         parts.capturedView(3).toInt()})
               .isValid();
}

qsizetype EndOfQuoted(QStringView query, qsizetype at)
{
    const QChar quote = query[at];
    qsizetype closing = query.indexOf(quote, at + 1);
    // A doubled quote is a part of the text. Names hold none, and two of them end there.
    while (quote == u'\'' && closing >= 0 && closing + 1 < query.size()
           && query[closing + 1] == quote) {
        closing = query.indexOf(quote, closing + 2);
    }
    return closing < 0 ? query.size() : closing + 1;
}

qsizetype EndOfWord(QStringView query, qsizetype at, bool isNumber)
{
    while (at < query.size() && (IsWordCharacter(query[at]) || (isNumber && query[at] == u'.'))) {
        ++at;
    }
    return at;
}

struct Piece
{
    Kind kind;
    qsizetype end;
};

Piece PieceAt(QStringView query, qsizetype at)
{
    const QChar c = query[at];
    if (c == u'\'' || c == u'"' || c == u'`') {
        return {c == u'\'' ? Kind::Text : Kind::Name, EndOfQuoted(query, at)};
    }
    if (c == u'#' && IsDayLiteral(query.mid(at, kDayLiteralLength))) {
        return {Kind::Text, at + kDayLiteralLength};
    }
    if (IsWordCharacter(c)) {
        return {c.isDigit() ? Kind::Number : Kind::Word, EndOfWord(query, at, c.isDigit())};
    }
    return {Kind::Sign, at + 1};
}

} // namespace

QString QueryToken::Plain() const
{
    return (kind == Kind::Name ? text.sliced(1).chopped(1) : text).toString().toLower();
}

std::vector<QueryToken> TokensOf(QStringView query)
{
    std::vector<QueryToken> tokens;
    int depth = 0;
    for (qsizetype at = 0; at < query.size();) {
        const QChar c = query[at];
        const Piece piece = PieceAt(query, at);
        depth -= c == u')' ? 1 : 0;
        if (!IsBlank(c)) {
            tokens.push_back({piece.kind, query.sliced(at, piece.end - at), at, depth});
        }
        depth += c == u'(' ? 1 : 0;
        at = piece.end;
    }
    tokens.push_back({Kind::End, query.sliced(query.size()), query.size(), depth});
    return tokens;
}
