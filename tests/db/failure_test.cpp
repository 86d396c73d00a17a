// What a person reads of a failure.
#include "db/failure.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Kind = Failure::Kind;

namespace {

QString Told(Kind kind, const QString &text)
{
    return Failure {.kind = kind,
                    .statement = u"UPDATE users SET blocked = true"_s,
                    .sqlState = u"HY000"_s,
                    .native = 19,
                    .text = text}
        .InWords();
}

struct WordsCase
{
    Kind kind;
    const char *words;
};

TEST(Failures, AreToldInASentenceWithTheDriversWordsLast)
{
    const WordsCase cases[] = {
        {Kind::Refused, "The database refused it."},
        {Kind::Locked, "Another program holds the database."},
        {Kind::Conflict, "Somebody else changed the same at that moment."},
        {Kind::ConnectionLost, "There is no connection to the database."},
        {Kind::NotAnswered, "The database does not answer."},
        {Kind::NotWritable, "The database takes no changes now."},
        {Kind::NewerSchema, "This program cannot work with the database."},
        {Kind::OutcomeUnknown,
         "The connection to the database was lost while it was being written."},
    };
    for (const auto &[kind, words] : cases) {
        EXPECT_EQ(Told(kind, u"disk full"_s), QLatin1StringView(words) + u"\ndisk full"_s);
        EXPECT_EQ(Told(kind, {}), QLatin1StringView(words));
    }
}

TEST(Failures, OfOnesOwnCancelNeedNoReason)
{
    EXPECT_EQ(Told(Kind::Cancelled, u"interrupted (9)"_s), u"It was cancelled."_s);
}

} // namespace
