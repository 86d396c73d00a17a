// "user ..." and "group ...".
#include "cli/command_line_fixture.h"
#include "support/core/fake_service.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class OwnerCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        AddOwners();
    }

    void ExpectRefused(const QStringList &arguments, int status, const char *words)
    {
        const QStringList before = EveryRow();
        EXPECT_EQ(Run(arguments), status)
            << arguments.join(u' ').toStdString() << said.toStdString();
        EXPECT_THAT(said.toStdString(), HasSubstr(words));
        EXPECT_EQ(printed, QString()) << arguments.join(u' ').toStdString();
        EXPECT_EQ(EveryRow(), before);
    }

    static QString UserRow(int userId)
    {
        return RowsOf(("SELECT username, fullname, ip_addr, mac_addr, group_id, mode, blocked, "
                       "blockreason, authreq FROM users WHERE user_id = "
                       + std::to_string(userId))
                          .c_str())
            .join(u';');
    }
};
TB_ON_EVERY_ENGINE(OwnerCommands);

QStringList Words(const char *line)
{
    return QString::fromUtf8(line).split(u' ');
}

} // namespace

TEST_P(OwnerCommands, AUserIsNamedByNameNumberOrAddress)
{
    for (const char *name : {"ANNA", "#1", "id:1", "10.0.0.1", "00-11-22-33-44-aa"}) {
        const auto user = ObjectOf({u"user"_s, u"show"_s, QString::fromLatin1(name)});
        EXPECT_EQ(user[u"id"].toInt(), 1) << name;
    }
    RunBeside("INSERT INTO users (user_id, username, ip_addr) VALUES (7, 'anna', '10.0.0.7')");
    ExpectRefused(Words("user show anna"), 1, "#1  anna  10.0.0.1\n  #7  anna  10.0.0.7");
    ExpectRefused(Words("user block bert anna --yes"), 1, "may be one of 2 users");
    ExpectRefused(Words("user show nobody"), 1, "There is no user \"nobody\"");
    ExpectRefused(Words("user show #99"), 1, "There is no user \"#99\"");
    ExpectRefused(Words("group show nowhere"), 1, "There is no group \"nowhere\"");
    EXPECT_EQ(ObjectOf(Words("group show yard"))[u"id"].toInt(), 90);
    EXPECT_EQ(ObjectOf(Words("group show #90"))[u"id"].toInt(), 90);
}

TEST_P(OwnerCommands, ShowsAUserAndWhy)
{
    const auto user = ObjectOf(Words("user show bert"));
    EXPECT_EQ(user[u"verdict"], u"denied"_s);
    EXPECT_EQ(user[u"blocked"], true);
    EXPECT_EQ(user[u"logins"].toArray(), QJsonArray {u"bertie"_s});
    EXPECT_EQ(user[u"why"][0][u"text"], u"Blocked by the administrator."_s);
    ASSERT_EQ(Run(Words("user show bert")), 0);
    EXPECT_THAT(printed.toStdString(), HasSubstr("* Blocked by the administrator.\n"));
    const auto anna = ObjectOf(Words("user show anna"));
    EXPECT_EQ(anna[u"trafficLimit"], 500);
    EXPECT_EQ(anna[u"timeLimit"], QJsonValue());
    EXPECT_EQ(anna[u"period"], u"month"_s);
    EXPECT_EQ(anna[u"verdict"], u"allowed"_s);
}

TEST_P(OwnerCommands, AddsAUserWithTheDefaultProfile)
{
    const ConfigStore settings = Settings();
    ASSERT_TRUE(settings.WriteText(values::kDefMode, u"1"_s));
    ASSERT_TRUE(settings.WriteText(values::kDefTrafficLimit, u"300"_s));
    ASSERT_TRUE(settings.WriteText(values::kDefBlocked, u"1"_s));
    const QStringList add =
        Words("user add carl --group yard --ip 10.0.0.3 --mac 00:11:22:33:44:cc "
              "--full-name Carl");
    const QStringList before = EveryRow();
    const auto tried = ObjectOf(add + QStringList {u"--dry-run"_s});
    EXPECT_EQ(tried[u"id"], QJsonValue());
    EXPECT_EQ(tried[u"changes"][0][u"after"][u"username"], u"carl"_s);
    EXPECT_EQ(EveryRow(), before);
    const int userId = ObjectOf(add)[u"id"].toInt();
    EXPECT_EQ(UserRow(userId), u"carl|Carl|10.0.0.3|0011223344CC|90|1|1|3|0"_s);
    EXPECT_EQ(RowsOf("SELECT traflim, trafperiod FROM users WHERE username = 'carl'"),
              QStringList(u"300|2"_s));
    ExpectRefused(Words("user add CARL"), 1, "There is a user carl already");
    ExpectRefused(Words("user add dora --ip 10.0.0.3"),
                  1,
                  "The IP address 10.0.0.3 is the one of the user \"carl\"");
    ExpectRefused(Words("user add dora --mac 0011223344CC"),
                  1,
                  "The MAC address 0011223344CC is the one of the user \"carl\"");
    ExpectRefused({u"user"_s, u"add"_s, u"  "_s}, 1, "Please enter the name of the user");
    ExpectRefused(Words("user add dora --group none"), 1, "There is no group \"none\"");
    ExpectRefused(Words("user add dora --ip 10.0.0"), 2, "no IP address");
    ExpectRefused(Words("user add dora --mac 12"), 2, "no MAC address");
    ExpectRefused(Words("user add dora emil"), 2, "Usage: tollbrook user add NAME");
}

// As the window and an import refuse it.
TEST_P(OwnerCommands, AddsNobodyWithAnAddressThatTheServiceIgnores)
{
    ASSERT_TRUE(Settings().CreateKey(ConfigKeyId::LocalIp));
    QFile file(Settings().FileOf(ConfigKeyId::LocalIp));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("exclude0=0x0A000007\n");
    file.close();
    ExpectRefused(Words("user add dora --ip 10.0.0.7"),
                  1,
                  "IP address \"10.0.0.7\": the address is excluded");
    ExpectRefused(Words("user add dora --ip 0.0.0.0"), 2, "is no IP address");
}

// The name of a group is no way to tell it from another one of that name.
TEST_P(OwnerCommands, AddsNobodyToAnotherGroupOfTheSameName)
{
    Execute("INSERT INTO groups (group_id, name) VALUES (95, 'Yard')");
    ExpectRefused(
        Words("user add dora --group #95"), 1, "The group Yard cannot be found by its name");
}

TEST_P(OwnerCommands, ChangesWhatIsNamedAndNothingElse)
{
    ASSERT_EQ(Run({u"user"_s, u"set"_s, u"anna"_s, u"--full-name"_s, u"Anna O'Hara"_s}), 0);
    EXPECT_EQ(UserRow(1), u"anna|Anna O'Hara|10.0.0.1|0011223344AA|90|1|0|0|0"_s);
    ASSERT_EQ(Run(Words("user set anna --group everybody --login-required yes --ip 10.0.0.9")), 0);
    EXPECT_EQ(UserRow(1), u"anna|Anna O'Hara|10.0.0.9|0011223344AA|80|1|0|0|1"_s);
    ASSERT_EQ(Run(Words("user set anna --group everybody")), 0);
    EXPECT_EQ(printed, u"User anna is so already. Nothing was changed.\n"_s);
    ExpectRefused(Words("user set anna"), 2, "Name what is to change");
    ExpectRefused(Words("user set anna --login-required perhaps"), 2, "none of: yes, no");
}

// A column would cut what is longer, and a name of two lines is seen by nobody.
TEST_P(OwnerCommands, StoresNoTextOtherThanItWasGiven)
{
    const QString most(254, u'x');
    const std::pair<QString, const char *> cases[] = {
        {most + u'x', "is too long"},
        {u"a\nb"_s, "cannot be shown"},
        {most.chopped(2) + u"\u20ac"_s, "is too long"},
    };
    for (const auto &[wrong, words] : cases) {
        for (const QStringList &command : {Words("user set anna --full-name"),
                                           Words("user set anna --description"),
                                           Words("group add"),
                                           Words("group rename yard"),
                                           Words("group set yard --description"),
                                           Words("login add")}) {
            ExpectRefused(command + QStringList {wrong}, 2, words);
        }
    }
    ASSERT_EQ(Run(Words("user set anna --full-name") + QStringList {most}), 0);
    ExpectRefused(Words("user set anna --ip 0.0.0.0"), 2, "is no IP address");
    ASSERT_EQ(Run(Words("user set anna --ip 010.000.0.7")), 0);
    EXPECT_EQ(UserRow(1), u"anna|%1|10.0.0.7|0011223344AA|90|1|0|0|0"_s.arg(most));
}

// As the sheet asks before the user who has the address is removed.
TEST_P(OwnerCommands, AsksBeforeTheHolderOfAnAddressIsRemoved)
{
    const QStringList set = Words("user set bert --ip 10.0.0.1");
    ExpectRefused(set, 1, "This IP address is bind to another user. This user will be removed.");
    EXPECT_THAT(said.toStdString(), HasSubstr("anna\nThere is no terminal"));
    ASSERT_EQ(Run(set + QStringList {u"--dry-run"_s}), 0);
    EXPECT_THAT(printed.toStdString(), HasSubstr("users 1: removed"));
    EXPECT_EQ(UserRow(2), u"bert||||90|0|1|3|0"_s);
    ASSERT_EQ(Run(set + QStringList {u"--yes"_s}), 0);
    EXPECT_EQ(UserRow(1), QString());
    EXPECT_EQ(UserRow(2), u"bert||10.0.0.1||90|0|1|3|0"_s);
}

TEST_P(OwnerCommands, BlocksAndUnblocksAndTellsTheService)
{
    PrivateBus bus;
    FakeService service {bus};
    service.OfferAccounting();
    UseBus(bus.Address());
    const QStringList before = EveryRow();
    ASSERT_EQ(Run(Words("user block anna bert --dry-run")), 0);
    EXPECT_EQ(EveryRow(), before);
    EXPECT_EQ(service.TakeCalls(), QStringList());
    const auto blocked = ObjectOf(Words("user block anna bert"));
    EXPECT_EQ(blocked[u"service"], u"told"_s);
    EXPECT_EQ(service.TakeCalls(), QStringList(u"BlockUser 1"_s));
    EXPECT_EQ(UserRow(1), u"anna||10.0.0.1|0011223344AA|90|1|1|3|0"_s);
    ASSERT_EQ(Run(Words("user unblock anna")), 0);
    EXPECT_EQ(printed, u"User anna was unblocked.\n"_s);
    EXPECT_EQ(service.TakeCalls(), QStringList(u"UnblockUser 1"_s));
    ExpectRefused(Words("user unblock anna"), 1, "has not blocked any of these users");

    service.RefuseNotices(u"No"_s);
    EXPECT_EQ(ObjectOf(Words("user block anna"))[u"service"], u"not heard"_s);
    EXPECT_THAT(said.toStdString(), HasSubstr("did not hear of it"));
    service.LeaveAccounting();
    EXPECT_EQ(ObjectOf(Words("user unblock anna"))[u"service"], u"not reached"_s);
}

TEST_P(OwnerCommands, MovesAndDeletesUsers)
{
    ExpectRefused(Words("user move anna"), 2, "--group");
    ASSERT_EQ(Run(Words("user move anna bert anna --group everybody")), 0);
    EXPECT_EQ(printed, u"2 users were moved to group Everybody.\n"_s);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users WHERE group_id = 80"), QStringList(u"2"_s));
    ExpectRefused(Words("user delete anna bert"),
                  1,
                  "This will delete these users and all corresponding information. Continue?\n"
                  "anna, bert\nThere is no terminal");
    const QStringList before = EveryRow();
    ASSERT_EQ(Run(Words("user delete anna --dry-run")), 0);
    EXPECT_THAT(printed.toStdString(), HasSubstr("users 1: removed"));
    EXPECT_EQ(EveryRow(), before);
    ASSERT_EQ(Run(Words("user delete bert --yes")), 0);
    EXPECT_EQ(UserRow(2), QString());
    EXPECT_EQ(RowsOf("SELECT userid FROM logins"), QStringList(u"0"_s));
}

TEST_P(OwnerCommands, LooksAfterGroups)
{
    EXPECT_EQ(FieldsOf(ListOf(Words("group list")), u"members"_s), (QStringList {u"0"_s, u"2"_s}));
    EXPECT_EQ(ObjectOf(Words("group add --dry-run Sales"))[u"id"], QJsonValue());
    const int sales = ObjectOf(Words("group add Sales"))[u"id"].toInt();
    EXPECT_GT(sales, 80);
    ExpectRefused(Words("group add sales"), 1, "The group with this name already exists!");
    ExpectRefused({u"group"_s, u"add"_s, u" "_s}, 1, "Please enter the name of the group");
    ASSERT_EQ(Run(Words("group rename sales Market")), 0);
    ASSERT_EQ(Run(Words("group set market --description Hall")), 0);
    EXPECT_EQ(ObjectOf(Words("group show market"))[u"description"], u"Hall"_s);
    ASSERT_EQ(Run(Words("group set market --description Hall")), 0);
    EXPECT_EQ(printed, u"Group Market is so already. Nothing was changed.\n"_s);
    ExpectRefused(Words("group set market"), 2, "Name what is to change");
    ExpectRefused(Words("group rename market Yard"), 1, "already exists");
    ExpectRefused(Words("group rename everybody All"), 1, "You can not rename Everybody group");
    ExpectRefused(Words("group delete everybody --yes"), 1, "You cannot delete Everybody group");
    ExpectRefused(Words("group delete yard"), 1, "This will delete the selected group.");
    ASSERT_EQ(Run(Words("group delete yard --yes")), 0);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users WHERE group_id = 80"), QStringList(u"2"_s));
}

TEST_P(OwnerCommands, BlocksAGroupWithItsMembers)
{
    PrivateBus bus;
    FakeService service {bus};
    service.OfferAccounting();
    UseBus(bus.Address());
    ASSERT_EQ(Run(Words("group block yard")), 0);
    QStringList calls = service.TakeCalls();
    calls.sort();
    EXPECT_EQ(calls, (QStringList {u"BlockUser 1"_s, u"BlockUser 2"_s}));
    EXPECT_EQ(ObjectOf(Words("group show yard"))[u"blocked"], true);
    ExpectRefused(Words("group block yard"), 1, "is blocked already");
    ASSERT_EQ(Run(Words("group unblock yard")), 0);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users WHERE blocked = 1"), QStringList(u"0"_s));
    ExpectRefused(Words("group unblock yard"), 1, "is not blocked");
    RunBeside("UPDATE groups SET blocked = 1, blockreason = 1 WHERE group_id = 90");
    ExpectRefused(Words("group unblock yard"), 1, "A higher limit or a credit lifts that");
}
