// "config ..." and "status".
#include "cli/command_line_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/test_data_source.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class SettingsCommands : public CommandLineFixture
{
protected:
    void ExpectRefused(const QStringList &arguments, int status, const char *words)
    {
        EXPECT_EQ(Run(arguments), status) << arguments.join(u' ').toStdString();
        EXPECT_THAT(said.toStdString(), HasSubstr(words));
        EXPECT_EQ(printed, QString());
    }
};
TB_ON_EVERY_ENGINE(SettingsCommands);

QStringList Words(const char *line)
{
    return QString::fromUtf8(line).split(u' ');
}

} // namespace

TEST_P(SettingsCommands, GetsSetsAndListsValues)
{
    ExpectRefused(Words("config get timer"), 1, "timer is not set in ");
    ASSERT_EQ(Run(Words("config set TIMER 120 --dry-run")), 0);
    EXPECT_THAT(printed.toStdString(), HasSubstr("settings timer: "));
    ExpectRefused(Words("config get timer"), 1, "timer is not set in ");
    ASSERT_EQ(Run(Words("config set TIMER 120")), 0);
    EXPECT_THAT(printed.toStdString(), HasSubstr("Network.toml"));
    ASSERT_EQ(Run(Words("config get timer")), 0);
    EXPECT_EQ(printed, u"120\n"_s);
    const auto set = ObjectOf(Words("config set trafprice 0.25"));
    EXPECT_EQ(set[u"file"], Settings().FileOf(ConfigKeyId::Price));
    EXPECT_EQ(Settings().ReadAmount(values::kTrafPrice), 0.25);
    EXPECT_EQ(ObjectOf(Words("config get Price/trafprice"))[u"value"], u"0.25"_s);
    ASSERT_EQ(Run(Words("config set clientpwd hidden")), 0);
    const auto list = ListOf(Words("config list"));
    EXPECT_EQ(list.size(), qsizetype(values::kAllTexts.size()));
    EXPECT_FALSE(printed.contains(u"hidden"_s));
    ASSERT_EQ(Run(Words("config list")), 0);
    EXPECT_THAT(printed.toStdString(), HasSubstr("clientpwd                ***"));
}

TEST_P(SettingsCommands, RefusesWhatIsUnknownOutOfRangeOrCannotBeWritten)
{
    ExpectRefused(Words("config get colour"), 1, "There is no value \"colour\"");
    ExpectRefused(Words("config set colour red"), 1, "There is no value \"colour\"");
    ExpectRefused(Words("config set timer 86401"), 1, "whole number from 0 to 86400");
    ExpectRefused(
        Words("config set timer 60s"), 1, qPrintable(Settings().FileOf(ConfigKeyId::Base)));
    ExpectRefused(Words("config set OnStop leave"), 1, "pass, keep");
    for (const auto &[needed, bounds] :
         {std::pair {u"bill dsn"_s, "1 to 32 bytes"}, {u"path"_s, "1 to 254 bytes"}}) {
        ExpectRefused({u"config"_s, u"set"_s, needed, QString()}, 1, bounds);
    }
    ExpectRefused(Words("config set rangenum 3"), 1, "means nothing without other values");
    ASSERT_EQ(Run(Words("config set timer 90 --dry-run")), 0) << said.toStdString();
    ExpectRefused(Words("config set ViewIPHdr 1"), 3, "There is no file ");
    QFile file(Settings().FileOf(ConfigKeyId::Base));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("port = 700\nbroken [\n");
    file.close();
    ExpectRefused(Words("config get timer"), 3, "Network.toml");
    ExpectRefused(Words("config set timer 60"), 3, "Network.toml");
    EXPECT_FALSE(said.contains(u"There is no file"_s)) << said.toStdString();
    EXPECT_EQ(Run(Words("config list")), 3);
}

TEST_P(SettingsCommands, AValueOfTheOtherKindIsToldAndMayBeReplaced)
{
    QFile file(Settings().FileOf(ConfigKeyId::Base));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("port = 700\n");
    file.close();
    ExpectRefused(Words("config get port"), 3, "is to be a text in quotation marks");
    EXPECT_EQ(Run(Words("config set port 701")), 0);
    EXPECT_EQ(Settings().ReadInteger(values::kPort), 701);
}

TEST_P(SettingsCommands, TheStateIsWellOnlyWhenEverythingIs)
{
    ASSERT_TRUE(Settings().CreateKey(ConfigKeyId::LocalIp));
    PrivateBus bus;
    FakeService service {bus};
    UseBus(bus.Address());
    service.SetStates({u"active"_s});
    service.OfferAccounting();
    const auto well = ObjectOf(Words("status"));
    EXPECT_EQ(well[u"service"], u"running"_s);
    EXPECT_EQ(well[u"connection"], u"answers"_s);
    EXPECT_EQ(well[u"lastCount"], u"2026-11-21T10:14:02"_s);
    EXPECT_EQ(well[u"dataSource"], DsnOf("console"));
    EXPECT_EQ(well[u"database"], u"open"_s);
    EXPECT_EQ(well[u"problems"].toArray(), QJsonArray());

    const QString base = Settings().FileOf(ConfigKeyId::Base);
    const auto closed = QFile::permissions(base);
    ASSERT_TRUE(QFile::setPermissions(base, closed | QFile::ReadOther));
    EXPECT_EQ(Run(Words("status")), 1);
    EXPECT_THAT(printed.toStdString(), HasSubstr(qPrintable(u"machine: "_s + base)));
    EXPECT_EQ(Run(Words("config get timer")), 1);
    EXPECT_THAT(said.toStdString(), testing::Not(HasSubstr("open to everybody")));
    ASSERT_TRUE(QFile::setPermissions(base, closed));

    service.SetReport({}, {u"The kernel's table cannot be read."_s});
    EXPECT_EQ(Run(Words("status")), 1);
    EXPECT_THAT(printed.toStdString(), HasSubstr("! The kernel's table cannot be read.\n"));
    EXPECT_THAT(printed.toStdString(),
                HasSubstr("! The accounting service has not written a count"));
    service.SetReport(u"2026-11-21T10:14:02"_s, {});
    service.LeaveAccounting();
    EXPECT_EQ(Run(Words("status")), 1);
    EXPECT_THAT(printed.toStdString(), HasSubstr("does not answer on the message bus"));
    service.SetStates({u"failed"_s});
    EXPECT_EQ(Run(Words("status")), 1);
    EXPECT_THAT(printed.toStdString(), HasSubstr("nobody is counted"));
    EXPECT_EQ(Run(Words("status --dsn nowhere")), 3);
    EXPECT_THAT(printed.toStdString(), HasSubstr("no section [nowhere] in odbc.ini"));
}

TEST_P(SettingsCommands, TheStateTellsOfTheSchemaAndOfMissingSettings)
{
    EXPECT_EQ(Run(Words("status")), 1);
    EXPECT_THAT(printed.toStdString(), HasSubstr("localip.toml; the installation makes it"));
    if (Engine() == u"sqlite"_s) { // a server's database serves the other cases, too
        test_data_source::ForgetSchemaVersion(Dsn());
        EXPECT_EQ(Run(Words("status")), 1);
        EXPECT_THAT(printed.toStdString(), HasSubstr("tollbrook-db upgrade"));
        EXPECT_EQ(Run(Words("user list")), 0);
        EXPECT_THAT(said.toStdString(), HasSubstr("tollbrook-db upgrade"));
    }
}
