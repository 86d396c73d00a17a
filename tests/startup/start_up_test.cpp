#include "startup/start_up.h"

#include "db/failure_log.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "startup/app_services.h"
#include "startup/rights.h"
#include "support/core/database_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"
#include "support/core/scripted_prompt.h"
#include "support/core/test_data_source.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char kFolderVariable[] = "TOLLBROOK_CONFIG";

class StartUp : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        DisconnectDatabase();
        FailureLog::Instance().Clear();
        qputenv(kFolderVariable, folder.filePath(u"named"_s).toUtf8());
    }

    void TearDown() override
    {
        qunsetenv(kFolderVariable);
        DatabaseFixture::TearDown();
    }

    // A store in this folder that names the data source.
    [[nodiscard]] QString FolderNaming(const QString &dataSource) const
    {
        const ConfigStore store(folder.filePath(u"given"_s));
        EXPECT_TRUE(store.CreateKey(ConfigKeyId::Base));
        EXPECT_TRUE(store.WriteText(values::kBillDsn, dataSource));
        return store.Folder();
    }
};

TEST_F(StartUp, TheFolderIsTheGivenOneOrTheOneOfTheEnvironmentOrTheUsualOne)
{
    const auto folderOf = [](const QString &given) {
        return StartedProgram({.configFolder = given, .opensDatabase = false}).settings.Folder();
    };
    EXPECT_EQ(folderOf(u"/somewhere"_s), u"/somewhere"_s);
    EXPECT_EQ(folderOf({}), folder.filePath(u"named"_s));
    qunsetenv(kFolderVariable);
    EXPECT_EQ(folderOf({}), u"/etc/tollbrook"_s);
}

TEST_F(StartUp, TheSettingsNameTheDataSourceUnlessItIsGiven)
{
    const StartedProgram found({.configFolder = FolderNaming(Dsn())});
    EXPECT_EQ(found.dataSource, Dsn());
    EXPECT_TRUE(found.databaseOpen);
    EXPECT_TRUE(IsDatabaseOpen());
    DisconnectDatabase();

    const QString folderNamingAnother = FolderNaming(u"no such source"_s);
    const StartedProgram given({.configFolder = folderNamingAnother, .dataSource = Dsn()});
    EXPECT_EQ(given.dataSource, Dsn());
    EXPECT_TRUE(given.databaseOpen);
    DisconnectDatabase();

    const StartedProgram empty({.configFolder = FolderNaming(Dsn()), .dataSource = QString()});
    EXPECT_EQ(empty.dataSource, QString());
    EXPECT_FALSE(empty.databaseOpen);
}

TEST_F(StartUp, TheDatabaseStaysClosedUnlessItIsWanted)
{
    const StartedProgram program({.configFolder = FolderNaming(Dsn()), .opensDatabase = false},
                                 [](StartUpProblem) { FAIL(); });
    EXPECT_EQ(program.dataSource, Dsn());
    EXPECT_FALSE(program.databaseOpen);
    EXPECT_FALSE(IsDatabaseOpen());
}

TEST_F(StartUp, EachProblemIsToldBeforeTheNextStep)
{
    using Told =
        std::pair<StartUpProblem, bool>; // with whether the database had been tried by then
    QList<Told> told;
    const StartedProgram program({}, [&told](StartUpProblem problem) {
        told.append({problem, FailureLog::Instance().Count() > 0});
    });
    EXPECT_EQ(told,
              (QList<Told> {{StartUpProblem::NoDataSource, false},
                            {StartUpProblem::DatabaseNotOpen, true}}));
    EXPECT_FALSE(program.databaseOpen);
    EXPECT_EQ(program.port, StartedProgram::kDefaultPort); // there is no store at all
}

TEST_F(StartUp, ASchemaOfAnotherVersionIsTold)
{
    const auto problem = [this] {
        const StartedProgram program({.configFolder = FolderNaming(Dsn())});
        const auto told = SchemaProblem(program.dataSource);
        EXPECT_EQ(program.databaseOpen, IsDatabaseOpen());
        EXPECT_EQ(program.databaseOpen, SessionSchemaVersion() <= NewestSchema());
        DisconnectDatabase();
        return told;
    };
    EXPECT_EQ(problem(), std::nullopt);
    test_data_source::RaiseSchemaVersion(Dsn());
    EXPECT_EQ(problem(),
              u"This program cannot work with the database.\n"_s
                  + NewerSchemaText(NewestSchema() + 1));
    test_data_source::ForgetSchemaVersion(Dsn());
    EXPECT_EQ(problem(), OlderSchemaText(0, Dsn()));
}

TEST_F(StartUp, TheServicesAreThoseOfTheProgramAndTheConnectionIsMadeAnewOnDemand)
{
    PrivateBus bus;
    FakeService service(bus);
    service.SetStates({u"active"_s});
    ScriptedPrompt prompt;
    StartedProgram program({.configFolder = FolderNaming(Dsn()), .bus = bus.Connection()});
    SessionThread database;
    ChangeNews news;
    const AppServices services {
        program.settings, database, program.control, program.connection, news, prompt};
    EXPECT_EQ(services.settings.ReadText(values::kBillDsn), Dsn());
    EXPECT_TRUE(services.control.IsRunning());
    EXPECT_EQ(services.connection.Link(), nullptr);

    EXPECT_EQ(services.connection.Connect(services.prompt), 0); // kept: a success
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Could not create instance"_s));
    EXPECT_EQ(services.connection.Link(), nullptr);

    service.OfferAccounting();
    EXPECT_EQ(services.connection.Connect(services.prompt), 0);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_NE(services.connection.Link(), nullptr);

    CloseConnections(services);
    EXPECT_EQ(services.connection.Link(), nullptr);
}

TEST_F(StartUp, NobodyAnswersWithoutABus)
{
    ScriptedPrompt prompt;
    StartedProgram program({.opensDatabase = false});
    EXPECT_EQ(program.control.Query(), std::nullopt);
    program.connection.Connect(prompt);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Could not create instance"_s));
}

TEST(Rights, AreTheGroupsOfWhoeverRunsTheConsole)
{
    const QString looks = u"tollbrook-view"_s;
    const QString changes = u"tollbrook"_s;
    const struct
    {
        bool isRoot;
        QStringList groups;
        bool onlyLooks;
    } kCases[] = {
        {false, {u"users"_s, looks}, true},
        {false, {looks, changes}, false},
        {false, {changes}, false},
        {false, {}, false}, // the files' modes decide
        {true, {looks}, false},
    };
    for (const auto &[isRoot, groups, onlyLooks] : kCases) {
        EXPECT_EQ(MayOnlyLook(isRoot, groups), onlyLooks) << qPrintable(groups.join(u' '));
    }
}

TEST(Buses, HaveTwoNames)
{
    ASSERT_TRUE(BusNamed(u"system"_s).has_value());
    ASSERT_TRUE(BusNamed(u"session"_s).has_value());
    EXPECT_NE(BusNamed(u"system"_s)->name(), BusNamed(u"session"_s)->name());
    EXPECT_FALSE(BusNamed(u""_s).has_value());
    EXPECT_FALSE(BusNamed(u"System"_s).has_value());
}

} // namespace
