// The table of actions, and what a person reads of what became of one.
#include "actions/action.h"

#include <QSet>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using State = Outcome::State;
using Kind = Failure::Kind;

namespace {

Failure Because(Kind kind, const QString &text)
{
    return {.kind = kind, .statement = {}, .sqlState = {}, .native = 0, .text = text};
}

TEST(Actions, StandInOneTable)
{
    QSet<QString> names;
    for (const ActionKind &kind : AllActions()) {
        EXPECT_EQ(&KindOf(kind.id), &kind) << kind.name;
        EXPECT_TRUE(QString::fromLatin1(kind.notDone).endsWith(u'.')) << kind.name;
        EXPECT_TRUE(QString::fromLatin1(kind.unknown).startsWith(u"It is not known whether "_s));
        names << QString::fromLatin1(kind.name);
    }
    EXPECT_EQ(names.size(), AllActions().size());
    EXPECT_EQ(AllActions().constLast().id, ActionId::Purge) << "the last one there is";
    EXPECT_EQ(AllActions().size(), static_cast<int>(ActionId::Purge) + 1);
}

struct WordsCase
{
    ActionId id;
    Outcome outcome;
    QString words;
};

TEST(Actions, AreToldInOneMessage)
{
    Outcome refused;
    refused.state = State::Refused;
    refused.refusal = u"This user has been deleted meanwhile."_s;
    Outcome notDone;
    notDone.state = State::NotDone;
    notDone.failures << Because(Kind::Locked, u"database is locked (5)"_s);
    Outcome unknown;
    unknown.state = State::Unknown;
    unknown.failures << Because(Kind::OutcomeUnknown, u"Server has gone away"_s);
    Outcome partly;
    partly.state = State::Partly;
    partly.failures << Because(Kind::Refused, u"first"_s) << Because(Kind::Refused, u"second"_s)
                    << Because(Kind::Refused, u"first"_s);
    Outcome stopped = partly;
    stopped.refusal = u"The service runs."_s;
    const WordsCase cases[] = {
        {ActionId::ApplyUser, refused, u"This user has been deleted meanwhile."_s},
        {ActionId::ApplyUser,
         notDone,
         u"The user's properties were not stored. Nothing was changed in the database.\n\n"
         "Another program holds the database.\ndatabase is locked (5)"_s},
        {ActionId::WriteAccount,
         unknown,
         u"It is not known whether the account was changed. Please look at it again before you repeat "
         "it.\n\nThe connection to the database was lost while it was being "
         "written.\nServer has gone away"_s},
        {ActionId::SaveLogins,
         partly,
         u"Not all logins were stored. What is not named here was written as it was entered.\n\n"
         "The database refused it.\nfirst\n\nThe database refused it.\nsecond"_s},
        {ActionId::SaveLogins,
         stopped,
         u"Not all logins were stored. What is not named here was written as it was entered.\n\n"
         "The service runs.\n\nThe database refused it.\nfirst\n\n"
         "The database refused it.\nsecond"_s},
    };
    for (const auto &[id, outcome, words] : cases) {
        EXPECT_EQ(InWords(id, outcome), words);
    }
}

TEST(Actions, ThatWereGivenUpAreUnknownOnlyWhenTheyMayBeKept)
{
    const Failure failure = Because(Kind::NotAnswered, {});
    const Outcome unknown = GivenUp<Outcome>::As(failure, true);
    EXPECT_EQ(unknown.state, State::Unknown);
    EXPECT_EQ(unknown.failures, QList<Failure> {failure});
    const Outcome notDone = GivenUp<Outcome>::As(failure, false);
    EXPECT_EQ(notDone.state, State::NotDone);
    EXPECT_EQ(notDone.failures, QList<Failure> {failure});
}

} // namespace
