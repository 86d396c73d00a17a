// Names of groups: none is empty and none stands for two groups, on every database engine.
#include "access/group_name.h"
#include "access/list_commands.h"
#include "base/text.h"
#include "db/group_keys.h"
#include "db/translation.h"
#include "running.h"
#include "support/core/engine_fixture.h"
#include "support/core/test_data_source.h"

#include <gmock/gmock.h>
#include <thread>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class GroupNames : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        // With the ids 81 to 83, which the engine itself gives.
        for (const QString &name : {u"Office"_s, u"B\u00fcro"_s, u"Stra\u00dfe"_s}) {
            Execute("INSERT INTO groups (name) VALUES (?)", name);
        }
    }

    static Outcome Add(const QString &name)
    {
        return RunAction(AddGroupAction(name, std::make_shared<GroupId>()), {}, nullptr);
    }

    static Outcome Rename(const QString &name, GroupId groupId = GroupId {81})
    {
        return RunAction(RenameGroupAction(groupId, name), {}, nullptr);
    }

    // By the group's sheet.
    static Outcome Store(const QString &name)
    {
        GroupRecord record = LoadGroup(GroupId {81}).value().value();
        record.draft.name = name;
        return RunAnswering(GroupAction(record), true).outcome;
    }
};

} // namespace

TB_ON_EVERY_ENGINE(GroupNames);

TEST_P(GroupNames, AreRefusedByEveryCommandThatGivesThem)
{
    const std::pair<QString, QString> refused[] = {
        {QString(), NoGroupNameText()},
        {u"  "_s, NoGroupNameText()},
        {u" everybody "_s, GroupNameTakenText()},
        {u"BU\u0308RO"_s, GroupNameTakenText()},
        {u"STRASSE"_s, GroupNameTakenText()},
    };
    const QStringList before = EveryRow();
    for (const auto &[name, reason] : refused) {
        for (const auto &command : {+[](const QString &text) { return Add(text); },
                                    +[](const QString &text) { return Rename(text); },
                                    +[](const QString &text) { return Store(text); }}) {
            const Outcome outcome = command(name);
            EXPECT_EQ(outcome.state, Outcome::State::Refused);
            EXPECT_EQ(outcome.refusal, reason);
        }
    }
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(GroupNames, MayBeTheirOwnInAnotherSpelling)
{
    EXPECT_TRUE(Rename(u"OFFICE"_s).IsDone());
    EXPECT_TRUE(Store(u"office "_s).IsDone());
    EXPECT_TRUE(Add(u"Buro"_s).IsDone()) << "another letter is another name";
    EXPECT_THAT(RowsOf("SELECT name FROM groups WHERE group_id = 81"), ElementsAre(u"office "_s));
}

TEST_P(GroupNames, CountAsFarAsAColumnTakesThem)
{
    EXPECT_TRUE(Add(QString(300, u'x')).IsDone());
    EXPECT_EQ(Add(QString(254, u'X')).refusal, GroupNameTakenText());
    EXPECT_EQ(Add(QString(299, u'x')).refusal, GroupNameTakenText());
}

// What was so before the rule stays usable.
TEST_P(GroupNames, ThatWereTwinsBeforeStayUntilTheyAreChanged)
{
    Execute("INSERT INTO groups (group_id, name) VALUES (90, 'office'), (91, '')");
    EXPECT_TRUE(Rename(u"Office"_s).IsDone());
    GroupRecord record = LoadGroup(GroupId {81}).value().value();
    record.draft.description = u"desks"_s;
    EXPECT_TRUE(RunAnswering(GroupAction(record), true).IsDone());
    EXPECT_TRUE(Rename(QString(), GroupId {91}).IsDone());
    EXPECT_EQ(Rename(u"Office"_s, GroupId {90}).refusal, GroupNameTakenText());
}

TEST_P(GroupNames, OfOneKindAreNotMadeTwiceByTwoConsoles)
{
    for (const bool withEverybody : {true, false}) {
        if (!withEverybody) {
            Execute("DELETE FROM groups WHERE group_id = 80");
        }
        const QByteArray dsn = Dsn().toUtf8();
        const auto console = [&dsn, withEverybody](const char *spelling) {
            ConnectDatabase(dsn.constData());
            for (int round = 0; round < 10; ++round) {
                (void)Add(QString::fromLatin1(spelling).arg(round) + (withEverybody ? u"a" : u"b"));
            }
            DisconnectDatabase();
        };
        std::thread other(console, "NEW %1");
        console("new %1");
        other.join();
        ConnectDatabase(dsn.constData());
    }
    QStringList keys;
    for (const QString &name : RowsOf("SELECT name FROM groups WHERE group_id > 83")) {
        keys << NameKey(name);
    }
    EXPECT_EQ(keys.size(), 20);
    EXPECT_EQ(keys.removeDuplicates(), 0);
}

// The commands that give a name, each with the group that gets it.
const std::pair<const char *, int> kNaming[] = {{"add", 84}, {"rename", 81}, {"store", 81}};

class GroupKeys : public GroupNames
{
protected:
    static Outcome Give(const char *command, const QString &name)
    {
        return command == QByteArray("add")  ? Add(name)
            : command == QByteArray("store") ? Store(name)
                                             : Rename(name);
    }

    static QString KeyOf(int groupId)
    {
        const QString query = u"SELECT name_key FROM groups WHERE group_id = %1"_s;
        return RowsOf(query.arg(groupId).toLatin1().constData()).value(0);
    }
};
TB_ON_EVERY_ENGINE(GroupKeys);

TEST_P(GroupKeys, AreWrittenByEveryCommandThatGivesANameAndToldByNone)
{
    for (const auto &[command, groupId] : kNaming) {
        const QString name = u"\u00c4rzte %1"_s.arg(QLatin1StringView(command));
        const Outcome outcome = Give(command, name);
        EXPECT_TRUE(outcome.IsDone()) << command;
        EXPECT_EQ(KeyOf(groupId), GroupKey(name.toLower())) << command;
        for (const Change &change : outcome.changes) {
            EXPECT_EQ(change.after.filter(u"name_key"_s), QStringList()) << command;
        }
        EXPECT_EQ(Give("add", name.toUpper()).refusal, GroupNameTakenText()) << command;
        Execute("DELETE FROM groups WHERE group_id > 83");
    }
}

TEST_P(GroupKeys, OfDeletedAndRenamedGroupsAreFree)
{
    EXPECT_TRUE(Rename(u"Staff"_s).IsDone());
    EXPECT_TRUE(RunAction(DeleteGroupOfListAction(GroupId {81}), {}, nullptr).IsDone());
    EXPECT_TRUE(Add(u"Staff"_s).IsDone());
    Execute("UPDATE groups SET name = 'by hand' WHERE name = 'Staff'"); // the key stays behind
    EXPECT_TRUE(Add(u"STAFF"_s).IsDone());
    EXPECT_EQ(RowsOf("SELECT name_key FROM groups WHERE name = 'STAFF'"),
              QStringList {GroupKey(u"staff"_s)});
    EXPECT_EQ(Rename(u"staff"_s, GroupId {82}).refusal, GroupNameTakenText());
}

TEST_P(GroupKeys, AreNoneOfOlderTables)
{
    RunBeside("DELETE FROM schema_version");
    test_data_source::CloseSession(); // which knew the version that it found
    test_data_source::OpenSession(Dsn());
    for (const auto &[command, groupId] : kNaming) {
        EXPECT_TRUE(Give(command, QLatin1StringView(command)).IsDone()) << command;
        EXPECT_EQ(KeyOf(groupId), QString()) << command;
    }
}

class GroupNameRace : public GroupKeys
{ };
TB_ON_EVERY_SERVER(GroupNameRace);

// The other one takes no lock before, as at another node of a cluster: the key alone stands in the way.
TEST_P(GroupNameRace, IsLostInTheWordsOfANameThatWasThereBefore)
{
    for (const auto &naming : kNaming) {
        DirectConnection other;
        ASSERT_TRUE(other.Open(Dsn()));
        const QString name = u"\u00c4rzte %1"_s.arg(QLatin1StringView(naming.first));
        const auto insert = QString::fromStdString(
            Translate(other.Engine(), "INSERT INTO groups (name, name_key) VALUES (?, ?)"));
        ASSERT_TRUE(other.Begin());
        ASSERT_TRUE(other.Run(insert, {name.toUtf8(), GroupKey(name).toLatin1()}));
        const QStringList before = EveryRow();
        Outcome outcome;
        {
            const std::jthread loser([&, dsn = Dsn().toUtf8()] {
                ConnectDatabase(dsn.constData());
                outcome = Give(naming.first, name.toLower());
                DisconnectDatabase();
            });
            AwaitLockWait();
            ASSERT_TRUE(other.Commit());
        }
        EXPECT_EQ(outcome.state, Outcome::State::Refused) << naming.first;
        EXPECT_EQ(outcome.refusal, GroupNameTakenText()) << naming.first;
        EXPECT_TRUE(outcome.failures.isEmpty()) << naming.first;
        QStringList after = EveryRow();
        EXPECT_EQ(after.filter(name).size(), 1) << naming.first;
        after.removeIf([&](const QString &row) { return row.contains(name); });
        EXPECT_EQ(after, before) << naming.first;
    }
}
