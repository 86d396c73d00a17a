// Commands whose statements fail, or whose connection is lost: the exit status is true, and so are the rows.
#include "cli/command_line.h"
#include "cli/command_line_fixture.h"
#include "db/session.h"
#include "support/core/faulty_driver.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class CommandFaults : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
        DisconnectDatabase(); // the commands open sessions of their own
        Renew();
        driver.emplace(Dsn());
    }

    void TearDown() override
    {
        driver.reset();
        CommandLineFixture::TearDown();
    }

    static void Renew()
    {
        for (const char *sqlText : {"DELETE FROM billing",
                                    "DELETE FROM Time_blocked",
                                    "DELETE FROM Port_blocked",
                                    "DELETE FROM logins",
                                    "DELETE FROM users",
                                    "DELETE FROM groups WHERE group_id <> 80"}) {
            RunBeside(sqlText);
        }
        AddOwners();
    }

    // In this process, where the driver can be made to fail.
    ExitStatus RunHere(const QStringList &words)
    {
        std::FILE *input = std::fopen("/dev/null", "r");
        std::FILE *output = std::tmpfile();
        Terminal terminal(input, output, output);
        const ExitStatus status =
            RunCommandLine(QStringList {u"tollbrook"_s} + words
                               + QStringList {u"--yes"_s, u"--config"_s, folder.path()},
                           u"1.0"_s,
                           terminal);
        std::fclose(input);
        std::fclose(output);
        return status;
    }

    // How many statements the command sends when nothing disturbs it.
    int CountStatements(const QStringList &words)
    {
        (void)driver->Take();
        EXPECT_EQ(RunHere(words), ExitStatus::Done);
        const int count = static_cast<int>(driver->Take().size());
        EXPECT_GT(count, 0);
        return count;
    }

    std::optional<FaultyDriver> driver;
};
TB_ON_EVERY_ENGINE(CommandFaults);

class CommandLosses : public CommandFaults
{ };
TB_ON_EVERY_SERVER(CommandLosses);

const char *const kReading[] = {"user list --accounts",
                                "user show anna",
                                "limit show anna",
                                "login list",
                                "time show anna",
                                "time show --group yard",
                                "restriction show anna",
                                "protocol list"};
const char *const kChanging[] = {"user set anna --full-name Anna",
                                 "user delete bert",
                                 "group rename yard Court",
                                 "credit add anna --traffic 5",
                                 "time add anna --day monday --from 8:00 --until 9:00",
                                 "time add --group yard --day monday --from 8:00 --until 9:00",
                                 "restriction set --group yard --select FTP"};

QStringList Words(const char *line)
{
    return QString::fromUtf8(line).split(u' ');
}

} // namespace

TEST_P(CommandFaults, AStatementThatIsRefusedEndsTheCommandAndChangesNothing)
{
    for (const char *line : kReading) {
        SCOPED_TRACE(line);
        const int count = CountStatements(Words(line));
        for (int number = 1; number <= count; ++number) {
            driver->Refuse(number);
            EXPECT_EQ(RunHere(Words(line)), ExitStatus::Failed) << number;
            (void)driver->Take();
        }
    }
    for (const char *line : kChanging) {
        SCOPED_TRACE(line);
        const int count = CountStatements(Words(line));
        Renew();
        const QStringList before = EveryRow();
        for (int number = 1; number <= count; ++number) {
            (void)driver->Take();
            driver->Refuse(number);
            EXPECT_EQ(RunHere(Words(line)), ExitStatus::Failed) << number;
        }
        EXPECT_EQ(EveryRow(), before);
    }
}

TEST_P(CommandLosses, AfterALostConnectionItIsDoneOrNotAndToldSo)
{
    for (const char *line : {"user delete bert",
                             "credit add anna --traffic 5",
                             "time add --group yard --day monday --from 8:00 --until 9:00"}) {
        SCOPED_TRACE(line);
        const int count = CountStatements(Words(line));
        QStringList before;
        for (int number = 1; number <= count; ++number) {
            if (EveryRow() != before) {
                Renew();
                before = EveryRow();
            }
            (void)driver->Take();
            driver->LoseBefore(number);
            const ExitStatus status = RunHere(Words(line));
            EXPECT_THAT(
                status,
                testing::AnyOf(ExitStatus::Done, ExitStatus::Failed, ExitStatus::Uncertain));
            EXPECT_EQ(EveryRow() != before, status == ExitStatus::Done) << number;
        }
        Renew();
    }
}

// Statement by statement: what was done before one that fails stays, and the status says that it is a part.
TEST_P(CommandFaults, OfProtocolsAFailureIsNeverTakenForAnEnd)
{
    const QStringList words = Words("protocol add Gopher 70 71");
    const QStringList remove = Words("protocol remove Gopher");
    const int count = CountStatements(words);
    ASSERT_EQ(RunHere(remove), ExitStatus::Done);
    const QStringList before = EveryRow();
    for (int number = 1; number <= count; ++number) {
        (void)driver->Take();
        driver->Refuse(number);
        const ExitStatus status = RunHere(words);
        (void)driver->Take();
        EXPECT_THAT(status, testing::AnyOf(ExitStatus::Failed, ExitStatus::Uncertain)) << number;
        if (status == ExitStatus::Failed) {
            EXPECT_EQ(EveryRow(), before) << number;
        } else if (EveryRow() != before) {
            EXPECT_EQ(RunHere(remove), ExitStatus::Done) << number;
            EXPECT_EQ(EveryRow(), before) << number;
        }
    }
}
