// Every action, with each of its statements failing in turn and with the connection lost before each:
// afterwards the tables are as they were before, or, where statements stand for themselves, without
// what that one statement does; and nothing untrue is told.
#include "action_cases.h"
#include "db/session.h"
#include "db/translation.h"
#include "service/service_link.h"
#include "support/core/engine_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/faulty_driver.h"
#include "support/core/private_bus.h"
#include "support/core/program_accounts.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using Kind = Failure::Kind;
using State = Outcome::State;
using testing::IsEmpty;

namespace {

bool IsRead(const QString &statement)
{
    return statement.startsWith(u"select"_s, Qt::CaseInsensitive);
}

// An action that nothing disturbed.
struct Undisturbed
{
    Answers answers; // to all its questions
    QStringList statements; // as they were sent
    QStringList told; // to the service
    QStringList before; // the rows
    QStringList after;

    // The number of the statement that keeps it all; 0 where each keeps itself.
    [[nodiscard]] int Commit() const
    {
        return static_cast<int>(statements.indexOf(u"commit"_s)) + 1;
    }
};

// A column that holds ids of a table's rows.
struct IdColumn
{
    int number;
    QString table;
};

QList<IdColumn> IdColumns(const QString &table)
{
    static const QMap<QString, QList<IdColumn>> references {
        {u"users"_s, {{7, u"groups"_s}}},
        {u"billing"_s, {{2, u"users"_s}, {4, u"traffic_use"_s}, {5, u"time_use"_s}}},
        {u"logins"_s, {{2, u"users"_s}}},
        {u"ports"_s, {{1, u"protocols"_s}}},
        {u"port_blocked"_s, {{3, u"ports"_s}}},
    };
    return QList<IdColumn> {{0, table}} + references.value(table);
}

// "users: 1" of a row of EveryRow.
QString IdOf(const QString &row)
{
    return row.section(u'|', 0, 0);
}

class EveryAction : public EngineFixture
{
public:
    void RefuseEach(const ActionCase &each, const Undisturbed &run);
    void LoseBeforeEach(const ActionCase &each, const Undisturbed &run);
    void LoseAfterEach(const ActionCase &each, const Undisturbed &run);
    void ConflictHalfwayAndAtTheEnd(const ActionCase &each, const Undisturbed &run);
    void TryIt(const ActionCase &each, const Undisturbed &run);

protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        service.OfferAccounting();
        link = ServiceLink::Create(bus.Connection());
        ASSERT_NE(link, nullptr);
        driver.emplace(Dsn());
    }

    void TearDown() override
    {
        driver.reset();
        EngineFixture::TearDown();
    }

    // The action, made on rows that are as they were prepared.
    [[nodiscard]] Action Prepared(const ActionCase &each)
    {
        driver->RefuseConnects(false);
        if (prepared != &each || Rows() != preparedRows) {
            EngineFixture::TearDown();
            EngineFixture::SetUp();
            PrepareRows();
            each.prepare();
            GoOnAs(role);
            action = each.action();
            EXPECT_FALSE(LastFailure());
            EXPECT_EQ(action.id, each.id);
            prepared = &each;
            preparedRows = Rows();
        }
        (void)driver->Take();
        (void)service.TakeCalls();
        return action;
    }

    // The session goes on by the account of the role; with none it stays that of the owner.
    void GoOnAs(const QString &wanted)
    {
        if (!wanted.isEmpty()) {
            const QByteArray dsn = AccountSource(Engine(), wanted).toUtf8();
            DisconnectDatabase();
            EXPECT_EQ(ConnectDatabase(dsn.constData()), 1);
        }
    }

    [[nodiscard]] Outcome Run(const Action &wanted, const Answers &answers)
    {
        Outcome outcome = RunAction(wanted, answers, link.get());
        EXPECT_FALSE(IsInTransaction());
        return outcome;
    }

    [[nodiscard]] Undisturbed RunUndisturbed(const ActionCase &each)
    {
        Undisturbed run;
        Outcome outcome = Run(Prepared(each), run.answers);
        while (outcome.state == State::NeedsAnswers) {
            for (const Question &question : outcome.questions) {
                run.answers.insert(question.key, true);
            }
            outcome = Run(Prepared(each), run.answers);
        }
        EXPECT_EQ(outcome.state, State::Done) << qPrintable(InWords(each.id, outcome));
        run.statements = driver->Take();
        run.told = service.TakeCalls();
        run.before = preparedRows;
        run.after = Rows();
        EXPECT_NE(run.before, run.after) << "it does nothing";
        return run;
    }

    // Every row, but for the times at which it was written.
    [[nodiscard]] static QStringList Rows()
    {
        static const QRegularExpression stamp(u"\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"_s);
        return EveryRow().replaceInStrings(stamp, u"now"_s);
    }

    // The same where the ids of new rows, and what names these, may be others.
    [[nodiscard]] static QStringList WithoutNewIds(const QStringList &rows,
                                                   const QStringList &before)
    {
        QSet<QString> newIds;
        for (const QString &row : rows) {
            newIds << IdOf(row);
        }
        for (const QString &row : before) {
            newIds.remove(IdOf(row));
        }
        // What stood there before may name somebody who is gone, by an id that is given again.
        const QSet<QString> stood(before.begin(), before.end());
        QStringList masked;
        for (const QString &row : rows) {
            if (stood.contains(row)) {
                masked << row;
                continue;
            }
            const QString table = row.section(u": "_s, 0, 0);
            QStringList values = row.section(u": "_s, 1).split(u'|');
            for (const IdColumn &each : IdColumns(table)) {
                QString &value = values[each.number];
                value = newIds.contains(each.table + u": "_s + value) ? u"*"_s : value;
            }
            masked << table + u": "_s + values.join(u'|');
        }
        masked.sort();
        return masked;
    }

    // The rows, new ids aside, that are there without being expected ("+"), or the other way round ("-").
    [[nodiscard]] static QStringList
    Differences(const QStringList &rows, const QStringList &expected, const QStringList &before)
    {
        QStringList found = WithoutNewIds(rows, before);
        QStringList missing;
        for (const QString &row : WithoutNewIds(expected, before)) {
            if (!found.removeOne(row)) {
                missing << u"-"_s + row;
            }
        }
        return found.replaceInStrings(QRegularExpression(u"^"_s), u"+"_s) + missing;
    }

    // What the service was told last of each user is what the user's row says.
    void ExpectTrueNotices()
    {
        QMap<QString, QString> told;
        for (const QString &call : service.TakeCalls()) {
            told[call.section(u' ', 1)] = call.section(u' ', 0, 0);
        }
        for (const auto &[user, word] : told.asKeyValueRange()) {
            const QStringList rows =
                RowsOf(("SELECT CASE WHEN blocked = 1 AND blockreason <> 4 THEN 'BlockUser' "
                        "ELSE 'UnblockUser' END FROM users WHERE user_id = "
                        + user.toStdString())
                           .c_str());
            EXPECT_THAT(rows, testing::Each(word)) << "user " << qPrintable(user);
        }
    }

    void
    ExpectNothingDone(const ActionCase &each, const Outcome &outcome, const QStringList &before)
    {
        EXPECT_EQ(Rows(), before);
        EXPECT_THAT(outcome.changes, IsEmpty());
        EXPECT_TRUE(InWords(each.id, outcome).contains(u"Nothing was changed in the database."_s));
        ExpectTrueNotices();
    }

    // The first failure is that of the statement as it was sent, of one of these kinds.
    static void ExpectNamed(const Outcome &outcome, const QString &sent, const QList<Kind> &kinds)
    {
        const Failure first = outcome.failures.value(0);
        EXPECT_EQ(
            QString::fromStdString(Translate(SessionDialect(), first.statement.toStdString())),
            sent);
        EXPECT_THAT(kinds, testing::Contains(first.kind));
        EXPECT_FALSE(first.text.isEmpty());
    }

    // The rows as they are when the statement does nothing, nor what would be wrong without it, and
    // nobody knows.
    [[nodiscard]] QStringList
    RowsWithout(const ActionCase &each, int number, const Undisturbed &run)
    {
        const Action ready = Prepared(each);
        driver->Skip(number, 1 + HangingOn(run.statements, number));
        (void)Run(ready, run.answers);
        return Rows();
    }

    // How many of the statements that follow are left out with this one: while a port is there, so are
    // the rows that deny it.
    [[nodiscard]] static int HangingOn(const QStringList &statements, int number)
    {
        int count = 0;
        if (statements[number - 1].startsWith(u"delete from ports"_s)) {
            while (statements.value(number + count).startsWith(u"delete from port_blocked"_s)) {
                ++count;
            }
        }
        return count;
    }

    static void
    ExpectNothingElse(const Undisturbed &run, const QString &statement, const Outcome &outcome);
    void LoseBeforeOne(const ActionCase &each, const Undisturbed &run, int number);

    // Does it with each of the cases.
    void ForEach(void (EveryAction::*act)(const ActionCase &, const Undisturbed &))
    {
        for (const ActionCase &each : ActionCases()) {
            SCOPED_TRACE(each.name);
            const Undisturbed run = RunUndisturbed(each);
            ASSERT_EQ(run.Commit() > 0, KindOf(each.id).oneTransaction);
            (this->*act)(each, run);
        }
    }

    QString role; // of whom the action is
    PrivateBus bus;
    FakeService service {bus};
    std::unique_ptr<ServiceLink> link;
    std::optional<FaultyDriver> driver;
    const ActionCase *prepared = nullptr;
    Action action;
    QStringList preparedRows;
};
TB_ON_EVERY_ENGINE(EveryAction);

// Of one transaction nothing is left; of statements that stand for themselves all but one.
void EveryAction::RefuseEach(const ActionCase &each, const Undisturbed &run)
{
    for (int number = 1; number <= run.statements.size(); ++number) {
        const QString statement = run.statements[number - 1];
        SCOPED_TRACE(statement.toStdString());
        const Action ready = Prepared(each);
        driver->Refuse(number);
        const Outcome outcome = Run(ready, run.answers);
        if (KindOf(each.id).oneTransaction) {
            EXPECT_EQ(outcome.state, State::NotDone);
            EXPECT_EQ(outcome.failures.size(), 1);
            ExpectNamed(outcome, statement, {Kind::Refused});
            ExpectNothingDone(each, outcome, run.before);
        } else if (IsRead(statement)) {
            ExpectNothingElse(run, statement, outcome);
        } else {
            EXPECT_THAT(outcome.state, testing::AnyOf(State::Partly, State::NotDone));
            ExpectNamed(outcome, statement, {Kind::Refused});
            const QStringList rows = Rows();
            EXPECT_EQ(rows, RowsWithout(each, number, run));
        }
    }
}

// What could not be read may leave undone what depends on it, which is told then; but no row becomes
// another one than the whole action makes of it.
void EveryAction::ExpectNothingElse(const Undisturbed &run,
                                    const QString &statement,
                                    const Outcome &outcome)
{
    const QStringList rows = WithoutNewIds(Rows(), run.before);
    const QStringList after = WithoutNewIds(run.after, run.before);
    const QStringList before = WithoutNewIds(run.before, run.before);
    if (outcome.state == State::Done) {
        EXPECT_EQ(rows, after);
        return;
    }
    ExpectNamed(outcome, statement, {Kind::Refused});
    EXPECT_THAT(outcome.state, testing::AnyOf(State::Partly, State::NotDone));
    for (const QString &row : rows) {
        EXPECT_TRUE(before.contains(row) || after.contains(row)) << qPrintable(row);
    }
    EXPECT_TRUE(outcome.state == State::Partly || rows == before);
}

void EveryAction::LoseBeforeEach(const ActionCase &each, const Undisturbed &run)
{
    for (int number = 1; number <= run.statements.size(); ++number) {
        SCOPED_TRACE(run.statements[number - 1].toStdString());
        LoseBeforeOne(each, run, number);
    }
}

void EveryAction::LoseBeforeOne(const ActionCase &each, const Undisturbed &run, int number)
{
    const Action ready = Prepared(each);
    driver->LoseBefore(number);
    const Outcome outcome = Run(ready, run.answers);
    const bool isOneTransaction = KindOf(each.id).oneTransaction;
    const QString statement = run.statements[number - 1];
    const QStringList rows = Rows();
    if (outcome.state == State::Done) {
        EXPECT_TRUE(!isOneTransaction || number == 1) << "it is simply begun again";
        EXPECT_THAT(Differences(rows, run.after, run.before), IsEmpty());
        ExpectTrueNotices();
    } else if (!isOneTransaction) {
        EXPECT_FALSE(IsRead(statement)) << "it is simply sent again";
        ExpectNamed(outcome, statement, {Kind::OutcomeUnknown, Kind::ConnectionLost});
        EXPECT_EQ(rows, RowsWithout(each, number, run));
    } else if (outcome.state == State::Unknown) {
        EXPECT_EQ(number, run.Commit()) << "only of its end it may be unknown";
        ExpectNamed(outcome, statement, {Kind::OutcomeUnknown});
        EXPECT_EQ(rows, run.before);
    } else {
        EXPECT_EQ(outcome.state, State::NotDone);
        ExpectNamed(outcome, statement, {Kind::ConnectionLost});
        ExpectNothingDone(each, outcome, run.before);
    }
}

// What was done although nobody said so is not told as not done.
void EveryAction::LoseAfterEach(const ActionCase &each, const Undisturbed &run)
{
    for (int number = 1; number <= run.statements.size(); ++number) {
        const QString statement = run.statements[number - 1];
        if (run.Commit() > 0 ? number != run.Commit() : IsRead(statement)) {
            continue;
        }
        SCOPED_TRACE(statement.toStdString());
        const Action ready = Prepared(each);
        driver->LoseAfter(number);
        const Outcome outcome = Run(ready, run.answers);
        EXPECT_THAT(Differences(Rows(), run.after, run.before), IsEmpty());
        if (outcome.state == State::Done) {
            ExpectTrueNotices();
            continue;
        }
        EXPECT_THAT(outcome.state, testing::AnyOf(State::Unknown, State::Partly));
        ExpectNamed(outcome, statement, {Kind::OutcomeUnknown});
    }
}

// A transaction that lost against another one runs again, and tells nobody twice: of what it did
// until then nothing is left, be it half of it or all.
void EveryAction::ConflictHalfwayAndAtTheEnd(const ActionCase &each, const Undisturbed &run)
{
    if (run.Commit() == 0) {
        return;
    }
    for (const int number : {run.Commit() / 2, run.Commit()}) {
        SCOPED_TRACE(run.statements[number - 1].toStdString());
        const Action ready = Prepared(each);
        driver->Conflict(number);
        const Outcome outcome = Run(ready, run.answers);
        EXPECT_EQ(outcome.state, State::Done) << qPrintable(InWords(each.id, outcome));
        EXPECT_THAT(Differences(Rows(), run.after, run.before), IsEmpty());
        // A server gives the rows of a table in no order, if none is asked for.
        EXPECT_THAT(service.TakeCalls(), testing::UnorderedElementsAreArray(run.told));
    }
}

// A trial tells what the action would change, and leaves no trace of it.
void EveryAction::TryIt(const ActionCase &each, const Undisturbed &run)
{
    const Action ready = Prepared(each);
    const Outcome outcome = TryAction(ready, run.answers);
    EXPECT_EQ(outcome.state, State::Done) << qPrintable(InWords(each.id, outcome));
    EXPECT_FALSE(IsInTransaction());
    EXPECT_FALSE(outcome.serviceTold);
    EXPECT_EQ(Rows(), run.before);
    EXPECT_THAT(service.TakeCalls(), IsEmpty());
}

TEST_P(EveryAction, CanBeTriedWithoutATrace)
{
    ForEach(&EveryAction::TryIt);
}

TEST_P(EveryAction, HasACase)
{
    QSet<int> missing;
    for (const ActionKind &kind : AllActions()) {
        missing << static_cast<int>(kind.id);
    }
    for (const ActionCase &each : ActionCases()) {
        missing -= static_cast<int>(each.id);
    }
    for (const int id : std::as_const(missing)) {
        ADD_FAILURE() << KindOf(static_cast<ActionId>(id)).name;
    }
}

TEST_P(EveryAction, KeepsNothingUntrueWhenAStatementIsRefused)
{
    ForEach(&EveryAction::RefuseEach);
}

class EveryActionOfServer : public EveryAction
{ };
TB_ON_EVERY_SERVER(EveryActionOfServer);

TEST_P(EveryActionOfServer, KeepsNothingUntrueWhenTheConnectionIsLostBeforeAStatement)
{
    ForEach(&EveryAction::LoseBeforeEach);
}

TEST_P(EveryActionOfServer, KeepsNothingUntrueWhenTheConnectionIsLostBeforeAnAnswer)
{
    ForEach(&EveryAction::LoseAfterEach);
}

TEST_P(EveryActionOfServer, RunsAgainWhereItLostAgainstAnotherOne)
{
    ForEach(&EveryAction::ConflictHalfwayAndAtTheEnd);
}

// The account of the console has all the rights that any action needs.
TEST_P(EveryActionOfServer, IsDoneByTheAccountOfTheConsole)
{
    role = u"console"_s;
    for (const ActionCase &each : ActionCases()) {
        SCOPED_TRACE(each.name);
        (void)RunUndisturbed(each);
    }
}

// Somebody who may only look is told so, by the server too, and changes nothing.
TEST_P(EveryActionOfServer, IsRefusedToTheAccountOfAViewer)
{
    role = u"viewer"_s;
    for (const ActionCase &each : ActionCases()) {
        if (each.id == ActionId::ImportUsers || each.id == ActionId::AddUser) {
            continue; // their plan reads the digests, which is refused before there is an action
        }
        SCOPED_TRACE(each.name);
        const Action ready = Prepared(each);
        Answers answers;
        Outcome outcome = Run(ready, answers);
        while (outcome.state == State::NeedsAnswers) {
            for (const Question &question : outcome.questions) {
                answers.insert(question.key, true);
            }
            outcome = Run(ready, answers);
        }
        EXPECT_THAT(outcome.state, testing::AnyOf(State::NotDone, State::Partly));
        EXPECT_TRUE(outcome.failures.value(0).text.contains(AccountName(role)))
            << qPrintable(InWords(each.id, outcome));
        EXPECT_EQ(Rows(), preparedRows);
    }
}

} // namespace
