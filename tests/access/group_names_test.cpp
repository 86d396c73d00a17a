// Names of groups: none is empty and none stands for two groups, on every database engine.
#include "access/group_name.h"
#include "access/list_commands.h"
#include "base/text.h"
#include "running.h"
#include "support/core/engine_fixture.h"

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
