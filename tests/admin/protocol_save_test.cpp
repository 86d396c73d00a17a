// What the options windows do to the tables Protocols, Ports and Port_blocked.
#include "db/direct_connection.h"
#include "options_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/statement_hook.h"
#include "support/core/statement_recorder.h"

#include <QRegularExpression>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

class ProtocolSave : public OptionsFixture
{
protected:
    void SetUp() override
    {
        OptionsFixture::SetUp();
        OnlyHttpAndFtp(); // listed by name: FTP, then HTTP
        table = LoadProtocols().value();
    }

    Outcome Save(const Answers &answers = {})
    {
        return RunAction(SaveProtocolsAction(table, leftOut), answers, nullptr);
    }

    Answers Yes() const
    {
        const auto questions = QuestionsOnDenials(table);
        EXPECT_TRUE(questions);
        Answers answers;
        for (const Question &question : *questions) {
            answers.insert(question.key, true);
        }
        return answers;
    }

    ProtocolTable table;
    LeftOut leftOut = std::make_shared<QStringList>();
};
TB_ON_EVERY_ENGINE(ProtocolSave);

class ProtocolSaveOnServer : public ProtocolSave
{ };
TB_ON_EVERY_SERVER(ProtocolSaveOnServer);

TEST_P(ProtocolSave, GoesInFiveSteps)
{
    ASSERT_EQ(table.Protocols().size(), 2);
    ASSERT_EQ(table.Add(u"New"_s), std::nullopt);
    ASSERT_EQ(table.AddPort(2, 7), std::nullopt);
    table.SetMonitored(2, true);
    ASSERT_EQ(table.AddPort(1, 8080), std::nullopt);
    table.RemovePort(1, 0);
    table.Remove(0); // FTP
    StatementRecorder statements;
    EXPECT_TRUE(Save().IsDone());
    const QStringList sent = statements.Take();
    EXPECT_EQ(sent.filter(QRegularExpression(u"^(INSERT|UPDATE|DELETE)"_s)),
              (QStringList {
                  u"INSERT INTO Protocols (proto_name, mon) VALUES ((?), (?))"_s,
                  u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
                  u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
                  u"DELETE FROM Protocols WHERE id = (?)"_s,
                  u"DELETE FROM Ports WHERE proto_id = (?)"_s,
                  u"DELETE FROM Ports WHERE port_id = (?)"_s,
                  u"UPDATE Protocols SET mon=(?) WHERE proto_name=(?)"_s,
                  u"UPDATE Protocols SET mon=(?) WHERE proto_name=(?)"_s,
              }));
    EXPECT_TRUE(sent.contains(u"SELECT id FROM Protocols WHERE proto_name = (?)"_s));
    EXPECT_TRUE(
        sent.contains(u"SELECT port_id FROM Ports WHERE proto_id = (?) AND port_number = (?)"_s));
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"New|1"_s}));
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"HTTP|8080"_s, u"New|7"_s}));
    EXPECT_EQ(RowsOf("SELECT count(*) FROM ports"), QStringList(u"2"_s));
    EXPECT_TRUE(leftOut->isEmpty());
}

TEST_P(ProtocolSave, WhatIsDeniedGoesWithItsPortAndIsAsked)
{
    AddPort(u"HTTP"_s, 8080);
    DenyUser(7, PortOf(u"HTTP"_s, 80));
    DenyGroup(81, PortOf(u"HTTP"_s, 80));
    DenyUser(7, PortOf(u"HTTP"_s, 8080));
    DenyUser(7, PortOf(u"FTP"_s, 80));
    table = LoadProtocols().value();
    table.RemovePort(1, 0); // HTTP 80
    table.Remove(0); // FTP
    const QList<Question> questions = QuestionsOnDenials(table).value();
    ASSERT_EQ(questions.size(), 2);
    EXPECT_EQ(questions[0].text,
              u"2 denied ports of users and groups name HTTP 80 and go with it. Continue?"_s);
    EXPECT_EQ(questions[1].text,
              u"1 denied port of users and groups names FTP and goes with it. Continue?"_s);

    const QStringList before = EveryRow();
    const Outcome asked = Save();
    EXPECT_EQ(asked.state, Outcome::State::NeedsAnswers);
    EXPECT_EQ(asked.questions.size(), 2);
    EXPECT_EQ(EveryRow(), before);

    EXPECT_TRUE(Save(Yes()).IsDone());
    EXPECT_EQ(RowsOf(kPortRows), QStringList {u"HTTP|8080"_s});
    EXPECT_EQ(RowsOf("SELECT user_id FROM port_blocked").size(), 1);
    EXPECT_EQ(RowsOf(kDenials), QStringList {u"HTTP|8080|7|"_s});
}

TEST_P(ProtocolSave, NobodyIsAskedAboutPortsThatNobodyIsDenied)
{
    DenyUser(7, PortOf(u"FTP"_s, 80));
    table.Remove(1); // HTTP
    EXPECT_EQ(QuestionsOnDenials(table), QList<Question>());
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf(kDenials), QStringList {u"FTP|80|7|"_s});
}

TEST_P(ProtocolSave, ANoKeepsEverything)
{
    DenyUser(7, PortOf(u"FTP"_s, 80));
    const Options base = Load();
    Options options = base;
    options.updatePeriod = 60;
    options.protocols->Remove(0);
    const QStringList before = EveryRow();
    const SaveReport asked = SaveOptions({base, options}, store, {});
    ASSERT_EQ(asked.questions.size(), 1);
    const SaveReport report = SaveOptions({base, options}, store, AllAnswered(asked, false));
    EXPECT_TRUE(report.isDeclined);
    EXPECT_FALSE(report.IsDone());
    EXPECT_EQ(report.InWords(), QString());
    EXPECT_EQ(EveryRow(), before);
    EXPECT_EQ(store.ReadText(values::kTimer), std::nullopt);
    EXPECT_TRUE(SaveOptions({base, options}, store, AllAnswered(asked, true)).IsDone());
    EXPECT_EQ(store.ReadText(values::kTimer), u"60"_s);
    EXPECT_TRUE(RowsOf("SELECT user_id FROM port_blocked").isEmpty());
}

TEST_P(ProtocolSave, OneMoreDenialIsAnotherQuestion)
{
    DenyUser(7, PortOf(u"FTP"_s, 80));
    table.Remove(0);
    const Answers yes = Yes();
    DenyUser(8, PortOf(u"FTP"_s, 80));
    EXPECT_EQ(Save(yes).state, Outcome::State::NeedsAnswers);
    EXPECT_EQ(RowsOf(kDenials).size(), 2);
}

TEST_P(ProtocolSave, AProtocolThatIsGoneDoesNotComeBackNorItsPorts)
{
    ASSERT_EQ(table.AddPort(1, 8080), std::nullopt);
    table.SetMonitored(0, false);
    const ProtocolTable untouched = LoadProtocols().value();
    Execute("DELETE FROM Ports");
    Execute("DELETE FROM Protocols");
    EXPECT_TRUE(Save().IsDone());
    EXPECT_TRUE(RowsOf(kProtocolRows).isEmpty());
    EXPECT_TRUE(RowsOf("SELECT port_number FROM ports").isEmpty());
    EXPECT_EQ(
        *leftOut,
        (QStringList {u"FTP was removed by somebody else meanwhile and does not come back."_s,
                      u"HTTP was removed by somebody else meanwhile and does not come back."_s}));

    table = untouched;
    EXPECT_TRUE(Save().IsDone());
    EXPECT_TRUE(leftOut->isEmpty()) << "nothing was wanted of them";
}

TEST_P(ProtocolSave, WhatTheOtherConsoleDidStays)
{
    ASSERT_EQ(table.AddPort(1, 8080), std::nullopt);
    table.SetMonitored(1, false);
    Execute("UPDATE Protocols SET mon = 0 WHERE proto_name = 'FTP'");
    Execute("DELETE FROM Ports WHERE proto_id = (?)", ProtocolOf(u"FTP"_s));
    AddPort(u"FTP"_s, 21);
    Execute("INSERT INTO Protocols (proto_name, mon) VALUES ('Mail', 1)");
    AddPort(u"Mail"_s, 25);
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|0"_s, u"FTP|0"_s, u"Mail|1"_s}));
    EXPECT_EQ(RowsOf(kPortRows),
              (QStringList {u"FTP|21"_s, u"HTTP|80"_s, u"HTTP|8080"_s, u"Mail|25"_s}));
}

TEST_P(ProtocolSave, AProtocolThatBothAddedIsThereOnce)
{
    ASSERT_EQ(table.Add(u"Mail"_s), std::nullopt);
    ASSERT_EQ(table.AddPort(2, 25), std::nullopt);
    ASSERT_EQ(table.AddPort(2, 465), std::nullopt);
    Execute("INSERT INTO Protocols (proto_name, mon) VALUES ('Mail', 1)");
    AddPort(u"Mail"_s, 25);
    AddPort(u"Mail"_s, 587);
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|1"_s, u"Mail|1"_s}));
    EXPECT_EQ(
        RowsOf(kPortRows),
        (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"Mail|25"_s, u"Mail|465"_s, u"Mail|587"_s}));
}

TEST_P(ProtocolSave, ARemovedPortIsFoundUnderItsNewRow)
{
    AddPort(u"HTTP"_s, 8080);
    table = LoadProtocols().value();
    table.RemovePort(1, 0); // HTTP 80
    Execute("DELETE FROM Ports"); // another console's wizard writes them anew
    AddPort(u"HTTP"_s, 8080);
    AddPort(u"HTTP"_s, 80);
    AddPort(u"FTP"_s, 80);
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"FTP|80"_s, u"HTTP|8080"_s}));
}

TEST_P(ProtocolSave, ThePortsOfAProtocolWhoseIdIsNotKnownAreLeftOutAndNamed)
{
    ASSERT_EQ(table.Add(u"New"_s), std::nullopt);
    ASSERT_EQ(table.AddPort(2, 7), std::nullopt);
    table.SetMonitored(2, true);
    ASSERT_EQ(table.AddPort(1, 8080), std::nullopt);
    DirectConnection other;
    ASSERT_TRUE(other.Open(Dsn()));
    Outcome outcome;
    {
        bool isAway = false;
        const StatementHook fail([&](const QString &statement) {
            if (std::exchange(isAway, statement.startsWith(u"SELECT id FROM"_s)) != isAway) {
                EXPECT_TRUE(other.Run(isAway
                                          ? u"ALTER TABLE protocols RENAME TO protocols_away"_s
                                          : u"ALTER TABLE protocols_away RENAME TO protocols"_s));
            }
        });
        outcome = Save();
    }
    EXPECT_EQ(outcome.state, Outcome::State::Partly);
    ASSERT_EQ(outcome.failures.size(), 1);
    EXPECT_EQ(outcome.failures[0].statement, u"SELECT id FROM Protocols WHERE proto_name = (?)"_s);
    EXPECT_EQ(*leftOut, QStringList {u"New was added without its ports."_s});
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|1"_s, u"New|1"_s}));
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"HTTP|8080"_s}));
}

TEST_P(ProtocolSave, WhatCouldNotBeReadIsNoTable)
{
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return LoadProtocols().has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return LoadWizardProtocols().has_value(); }),
              QStringList());
    table.RemovePort(1, 0);
    table.Remove(0);
    EXPECT_EQ(UntoldFailures(Dsn(), [this] { return QuestionsOnDenials(table).has_value(); }),
              QStringList());
}

TEST_P(ProtocolSave, APortWhoseDenialsAreNotKnownStays)
{
    table.RemovePort(1, 0);
    table.Remove(0);
    ASSERT_EQ(table.Add(u"New"_s), std::nullopt);
    Execute("ALTER TABLE port_blocked RENAME TO port_blocked_away");
    const Outcome outcome = Save();
    Execute("ALTER TABLE port_blocked_away RENAME TO port_blocked");
    EXPECT_EQ(outcome.state, Outcome::State::Partly);
    EXPECT_EQ(leftOut->size(), 2);
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|1"_s, u"New|0"_s}));
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"FTP|80"_s, u"HTTP|80"_s}));
}

TEST_P(ProtocolSaveOnServer, WhatWasDoneBehindALostAnswerIsFound)
{
    DenyUser(7, PortOf(u"HTTP"_s, 80));
    table = LoadProtocols().value();
    table.RemovePort(1, 0);
    table.SetMonitored(1, false);
    table.Remove(0); // FTP
    const Answers yes = Yes();
    QStringList lost {u"DELETE FROM Protocols WHERE id = (?)"_s,
                      u"DELETE FROM Port_blocked WHERE port_id = (?)"_s,
                      u"UPDATE Protocols SET mon=(?) WHERE proto_name=(?)"_s};
    Outcome outcome;
    {
        FaultyDriver driver(Dsn());
        const StatementHook lose([&](const QString &statement) {
            if (lost.removeOne(statement)) {
                driver.LoseAfter(1);
            }
        });
        outcome = Save(yes);
    }
    EXPECT_EQ(lost, QStringList());
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_EQ(*leftOut, QStringList());
    EXPECT_EQ(RowsOf(kProtocolRows), QStringList {u"HTTP|0"_s});
    EXPECT_EQ(RowsOf("SELECT port_id FROM ports"), QStringList());
    EXPECT_EQ(RowsOf("SELECT pb_id FROM port_blocked"), QStringList());
}
