// What a person reads of a failure.
#include "db/dialect.h"

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

TEST(Failures, OfALackedRightAreKnownOnEachServer)
{
    struct RightCase
    {
        const Dialect &engine;
        const char *state;
        int native;
        bool lacks;
    };
    const RightCase cases[] = {
        {kPostgresql, "42501", 1, true},
        {kPostgresql, "42P01", 1, false},
        {kMariadb, "42000", 1142, true},
        {kMariadb, "42000", 1143, true},
        {kMariadb, "42000", 1044, true},
        {kMariadb, "42000", 1227, true},
        {kMariadb, "42000", 1064, false},
        {kSqlite, "HY000", 1142, false},
    };
    for (const auto &[engine, state, native, lacks] : cases) {
        EXPECT_EQ(LacksRight(engine, state, native), lacks) << state << ' ' << native;
    }
}

} // namespace
