// "login ...", and questions on a terminal.
#include "admin/password_digest.h"
#include "cli/command_line_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class LoginCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        AddOwners();
    }

    void ExpectRefused(const QString &line, int status, const char *words)
    {
        const QStringList before = EveryRow();
        EXPECT_EQ(Run(line.split(u' '), "secret\n"), status)
            << line.toStdString() << said.toStdString();
        EXPECT_THAT(said.toStdString(), HasSubstr(words));
        EXPECT_EQ(EveryRow(), before);
    }

    static QString RowOf(const char *login)
    {
        return RowsOf((std::string("SELECT userid, limitpc, limitpcmode, limitip, limitmac, "
                                   "allowstats, virtual, pwd FROM logins WHERE login = '")
                       + login + "'")
                          .c_str())
            .join(u';');
    }
};
TB_ON_EVERY_ENGINE(LoginCommands);

QStringList Words(const char *line)
{
    return QString::fromUtf8(line).split(u' ');
}

} // namespace

TEST_P(LoginCommands, AddsALoginWhosePasswordIsNeverAnArgument)
{
    const QStringList add = Words("login add anni --user anna --ip 10.0.0.1 --statistics yes");
    const QStringList before = EveryRow();
    ASSERT_EQ(Run(add + QStringList {u"--dry-run"_s}, "secret\n"), 0) << said.toStdString();
    EXPECT_THAT(printed.toStdString(), HasSubstr("logins anni: new, login=anni, userid=1"));
    EXPECT_EQ(EveryRow(), before);
    ASSERT_EQ(Run(add, "secret\n"), 0) << said.toStdString();
    EXPECT_EQ(said, QString());
    EXPECT_EQ(RowOf("anni"), u"1|1|0|10.0.0.1||1|0|"_s + *PasswordDigest(u"secret"_s));
    const auto logins = ListOf(Words("login list"));
    EXPECT_EQ(logins.size(), 2);
    EXPECT_FALSE(printed.contains(*PasswordDigest(u"secret"_s)));
    ExpectRefused(u"login add ANNI"_s, 1, "This login name already exists!");
    ExpectRefused(u"login add two --user anna"_s, 1, "This user already has login");
    ExpectRefused(u"login add two --ip 10.0.0"_s, 1, "incorrect IP address");
    ExpectRefused(u"login add two --mac 00"_s, 1, "incorrect MAC address");
    EXPECT_EQ(Run(Words("login add two")), 2) << "no password";
    EXPECT_EQ(Run(Words("login add two"), "\nsecret\n"), 2) << "an empty one";
}

TEST_P(LoginCommands, ChangesWhatIsNamedAndKeepsThePassword)
{
    ASSERT_EQ(Run(Words("login add anni --user anna --ip 10.0.0.1 --guest"), "secret\n"), 0);
    const QString digest = *PasswordDigest(u"secret"_s);
    ASSERT_EQ(Run(Words("login set anni --mac 00:11:22:33:44:aa")), 0) << said.toStdString();
    EXPECT_EQ(RowOf("anni"), u"1|1|1|10.0.0.1|0011223344AA|0|1|"_s + digest);
    ASSERT_EQ(Run(Words("login set anni --no-user --any-workstation --statistics yes")), 0);
    EXPECT_EQ(RowOf("anni").section(u'|', 0, 1), u"0|0"_s);
    ASSERT_EQ(Run(Words("login set anni --password"), "other\n"), 0);
    EXPECT_EQ(RowOf("anni").section(u'|', 7), *PasswordDigest(u"other"_s));
    ASSERT_EQ(Run(Words("login set anni --statistics yes")), 0);
    EXPECT_EQ(printed, u"Login anni is so already. Nothing was changed.\n"_s);
    ExpectRefused(u"login set anni"_s, 2, "Name what is to change");
    ExpectRefused(u"login set anni --user anna --no-user"_s, 2, "either --user or --no-user");
    ExpectRefused(u"login set anni --ip 10.0.0.1 --mac 001122334455"_s, 2, "either --ip or --mac");
    ExpectRefused(
        u"login set anni --mac 001122334455 --any-workstation"_s, 2, "--mac or --any-workstation");
    ExpectRefused(u"login set nobody --statistics yes"_s, 1, "There is no login \"nobody\"");
    ExpectRefused(u"login set anni --user bert"_s, 1, "This user already has login");
}

TEST_P(LoginCommands, RemovesALoginAfterAQuestion)
{
    ExpectRefused(u"login remove bertie"_s, 1, "Remove this login from the database?\nbertie\n");
    const QStringList before = EveryRow();
    ASSERT_EQ(Run(Words("login remove bertie --dry-run")), 0);
    EXPECT_EQ(EveryRow(), before);
    ASSERT_EQ(Run(Words("login remove BERTIE --yes")), 0);
    EXPECT_EQ(RowsOf("SELECT login FROM logins"), QStringList());
}

TEST_P(LoginCommands, OnATerminalNothingButYesIsYes)
{
    const QStringList remove = Words("login remove bertie");
    for (const char *answer : {"\n", "n\n", "yesterday\n", "\x04"}) {
        EXPECT_EQ(RunOnTerminal(remove, answer), 1) << answer;
        EXPECT_THAT(said.toStdString(), HasSubstr("[y/N]"));
        EXPECT_EQ(RowsOf("SELECT login FROM logins"), QStringList(u"bertie"_s));
    }
    EXPECT_EQ(RunOnTerminal(remove, "y\n"), 0) << said.toStdString();
    EXPECT_EQ(RowsOf("SELECT login FROM logins"), QStringList());
}

TEST_P(LoginCommands, OnATerminalAPasswordIsTypedTwiceAndUnseen)
{
    EXPECT_EQ(RunOnTerminal(Words("login add anni"), "secret\nsecrey\n"), 1);
    EXPECT_THAT(said.toStdString(), HasSubstr("Passwords are not identical"));
    EXPECT_EQ(RunOnTerminal(Words("login add anni"), "secret\nsecret\n"), 0) << said.toStdString();
    EXPECT_EQ(RowOf("anni").section(u'|', 7), *PasswordDigest(u"secret"_s));
    EXPECT_FALSE(seenOnTerminal.contains("secret")) << seenOnTerminal.toStdString();
}
