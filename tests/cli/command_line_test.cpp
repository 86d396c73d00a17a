// The command line as a whole: how it is understood, and what it prints.
#include "cli/command_line_fixture.h"
#include "support/core/program_accounts.h"

#include <QProcess>

#include <array>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class CommandLine : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        RunBeside("INSERT INTO groups (group_id, name) VALUES (90, 'Yard')");
        RunBeside("INSERT INTO users (user_id, username, ip_addr, mac_addr, group_id, blocked, "
                  "blockreason, mode, traflim) VALUES (1, 'anna', '10.0.0.1', '0011223344AA', 90, "
                  "0, 0, 1, 500)");
        RunBeside("INSERT INTO users (user_id, username, group_id, blocked, blockreason) "
                  "VALUES (2, (?), 80, 1, 3)",
                  {QByteArray("b\x1b[31mad\xe2\x80\xae")});
    }
};
TB_ON_EVERY_ENGINE(CommandLine);

} // namespace

TEST_P(CommandLine, ListsUsersInLinedUpColumns)
{
    ASSERT_EQ(Run({u"user"_s, u"list"_s, u"anna"_s}), 0) << said.toStdString();
    EXPECT_EQ(printed,
              u"Number  User name  Workstation  Full name  IP address  MAC address        Group  "
              "Access\n"
              "     1  anna                               10.0.0.1    00-11-22-33-44-AA  Yard   "
              "allowed\n"_s);
}

TEST_P(CommandLine, ListsWhomTheFindBarFinds)
{
    EXPECT_EQ(FieldsOf(ListOf({u"user"_s, u"list"_s}), u"id"_s), (QStringList {u"1"_s, u"2"_s}));
    EXPECT_EQ(FieldsOf(ListOf({u"user"_s, u"list"_s, u"blocked"_s}), u"id"_s), QStringList(u"2"_s));
    const auto rows = ListOf({u"user"_s, u"list"_s, u"group:yard"_s, u"10.0"_s, u"--accounts"_s});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].toObject(),
              (QJsonObject {{u"id"_s, 1},
                            {u"name"_s, u"anna"_s},
                            {u"workstation"_s, u""_s},
                            {u"fullName"_s, u""_s},
                            {u"ip"_s, u"10.0.0.1"_s},
                            {u"mac"_s, u"00-11-22-33-44-AA"_s},
                            {u"group"_s, u"Yard"_s},
                            {u"access"_s, u"allowed"_s},
                            {u"used"_s, 0},
                            {u"left"_s, 500},
                            {u"unit"_s, u"MB"_s}}));
    EXPECT_EQ(ListOf({u"user"_s, u"list"_s, u"nobody"_s}), QJsonArray());
}

TEST_P(CommandLine, NoNameReachesTheTerminalRaw)
{
    for (const QStringList &form : {QStringList {}, QStringList {u"--json"_s}}) {
        ASSERT_EQ(Run(QStringList {u"user"_s, u"list"_s} + form), 0);
        EXPECT_TRUE(printed.contains(u"b\\u001b[31mad\\u202e"_s)) << printed.toStdString();
        EXPECT_FALSE(printed.contains(QChar(0x1b)) || printed.contains(QChar(0x202e)));
    }
}

TEST_P(CommandLine, TellsByItsExitStatusWhatIsWrong)
{
    struct Case
    {
        QStringList arguments;
        int status;
        const char *words;
    };
    const QStringList list {u"user"_s, u"list"_s};
    const Case cases[] = {
        {{}, 2, "Name a command"},
        {{u"user"_s, u"dance"_s}, 2, "There is no command \"user dance\""},
        {{u"user"_s}, 2, "Name a command of \"user\""},
        {list + QStringList {u"--colour"_s}, 2, "colour"},
        {list + QStringList {u"--bus"_s, u"school"_s}, 2, "\"school\""},
        {list + QStringList {u"mode:none:"_s}, 2, "mode"},
        {list + QStringList {u"--dsn"_s, u"nowhere"_s}, 3, "no section [nowhere] in odbc.ini"},
        {QStringList {u"--dsn"_s, u"nowhere"_s} + list, 3, "no section [nowhere] in odbc.ini"},
        {QStringList {u"--dsn"_s, Dsn()} + list, 0, ""},
        {{u"config"_s, u"set"_s, u"timer"_s, u"-5"_s}, 2, "behind \"--\""},
        {list + QStringList {QString(QChar::ReplacementCharacter)}, 2, "not in UTF-8"},
        {{u"--version"_s}, 0, ""},
        {{u"-v"_s}, 0, ""},
        {{u"-h"_s}, 0, ""},
        {{u"--help"_s}, 0, ""},
        {list + QStringList {u"--help"_s}, 0, ""},
    };
    for (const auto &[arguments, status, words] : cases) {
        EXPECT_EQ(Run(arguments), status)
            << arguments.join(u' ').toStdString() << said.toStdString();
        EXPECT_TRUE(said.contains(QLatin1StringView(words))) << said.toStdString();
        EXPECT_EQ(printed.isEmpty(), status != 0) << printed.toStdString();
    }
    RunBeside("ALTER TABLE users RENAME TO users_away");
    EXPECT_EQ(Run(list), 3);
    EXPECT_TRUE(said.startsWith(u"tollbrook: "_s) && said.contains(u"users"_s));
    RunBeside("ALTER TABLE users_away RENAME TO users");
}

// Where there are accounts, that of a viewer sees everything but passwords' digests, and changes nothing.
TEST_P(CommandLine, WorksForAViewerAsFarAsNothingChanges)
{
    const QString dsn = DsnOf("viewer");
    const bool hasAccounts = dsn != Dsn();
    const QString refusal = u"The account \"%1\" of the data source \"%2\" lacks the right"_s.arg(
        AccountName(u"viewer"_s), dsn);
    ASSERT_TRUE(Settings().WriteText(values::kBillDsn, dsn));
    const char *const looks[] = {"user list --accounts",
                                 "user list mode:traffic",
                                 "user show anna",
                                 "group list",
                                 "group show Yard",
                                 "credit list anna",
                                 "limit show anna",
                                 "limit show --group Yard",
                                 "login list",
                                 "config list"};
    for (const char *const look : looks) {
        EXPECT_EQ(Run(QString::fromLatin1(look).split(u' ')), 0) << look << said.toStdString();
    }
    const QStringList before = EveryRow();
    const char *const changes[] = {"user block anna",
                                   "user delete anna --yes",
                                   "user add carl",
                                   "group rename Yard Field",
                                   "export"};
    for (const char *const change : changes) {
        const int status = Run(QString::fromLatin1(change).split(u' '));
        if (hasAccounts) {
            EXPECT_NE(status, 0) << change << printed.toStdString();
            EXPECT_TRUE(said.contains(refusal)) << change << said.toStdString();
        }
    }
    if (hasAccounts) {
        EXPECT_EQ(EveryRow(), before);
    }
}

TEST_P(CommandLine, OutputThatCannotBeWrittenIsNoSuccess)
{
    outputFile = u"/dev/full"_s;
    EXPECT_EQ(Run({u"user"_s, u"list"_s}), 3);
    EXPECT_EQ(said, u"tollbrook: The output could not be written.\n"_s);
}

TEST_P(CommandLine, AReaderThatHasGoneEndsNoChangeHalfway)
{
    std::array<int, 2> ends {};
    ASSERT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    QProcess process;
    process.setChildProcessModifier([writing = ends[1]] { dup2(writing, STDOUT_FILENO); });
    EXPECT_EQ(RunWith(process, {u"group"_s, u"add"_s, u"Readers"_s}, [] {}), 3);
    close(ends[1]);
    EXPECT_EQ(RowsOf("SELECT name FROM groups WHERE name = 'Readers'"), QStringList(u"Readers"_s));
}
