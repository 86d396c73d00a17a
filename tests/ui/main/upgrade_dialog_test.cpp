// The window that offers the upgrade of an older database: by mouse and keys, on every engine.
#include "ui/main/upgrade_dialog.h"

#include "db/query.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "startup/start_up.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/scripted_prompt.h"
#include "support/core/test_data_source.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 20000;
constexpr int kOld = 1;

class UpgradeWindow : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        MakeTables(kOld);
        RunBeside("INSERT INTO groups (group_id, name) VALUES (90, 'Staff'), (91, 'STAFF')");
        test_data_source::CloseSession(); // the console's own is the only one
        program.emplace(
            StartUpOptions {.configFolder = files.filePath(u"config"_s), .opensDatabase = false});
        ASSERT_TRUE(program->settings.CreateKey(ConfigKeyId::Base));
        session.emplace();
        session->Open(Dsn());
        services.emplace(AppServices {
            program->settings, *session, program->control, program->connection, news, prompt});
        ASSERT_EQ(VersionOfSession(), kOld);
        window.emplace(*services, kOld, nullptr);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
        Find<QLineEdit>("file").setText(files.filePath(u"before"_s));
        AwaitRest();
    }

    void TearDown() override
    {
        window.reset();
        session.reset();
        MakeTables(NewestSchema());
        EngineFixture::TearDown();
    }

    // With the rows of a new database; nobody else may be connected.
    static void MakeTables(int version)
    {
        DirectConnection database;
        ASSERT_TRUE(database.Open(Dsn()));
        const Dialect &dialect = database.Engine();
        QStringList statements;
        for (const QString &table : SchemaTables()) {
            statements << u"DROP TABLE IF EXISTS "_s + Quoted(dialect, table);
        }
        if (&dialect == &kPostgresql) {
            statements << u"DROP COLLATION IF EXISTS nocase"_s;
        }
        statements << SchemaStatements(dialect, version) << VersionStatements(version).first();
        for (const QString &statement : std::as_const(statements)) {
            ASSERT_TRUE(database.Run(statement)) << qPrintable(database.Error());
        }
    }

    template <typename Widget>
    Widget &Find(const char *name)
    {
        return *window->findChild<Widget *>(QLatin1StringView(name));
    }

    void Click(const char *name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }

    // Until nothing runs.
    void AwaitRest()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return Find<QPushButton>("close").isEnabled(); },
                                    kPatienceMs));
    }

    QString Log() { return Find<QPlainTextEdit>("log").toPlainText(); }
    QString Outcome() { return Find<QLabel>("outcome").text(); }

    // As the console's session finds it.
    int VersionOfSession()
    {
        std::optional<Result<int>> version;
        session->Start(
            &*session, OpenedSchemaVersion, [&](const Result<int> &given) { version = given; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return version.has_value(); }, kPatienceMs));
        return version && *version ? **version : -1;
    }

    void ExpectUpgraded()
    {
        EXPECT_TRUE(window->IsUpgraded()) << qPrintable(Log());
        EXPECT_EQ(Outcome(), u"The tables are up to date."_s);
        EXPECT_FALSE(Find<QPushButton>("upgrade").isEnabled());
        EXPECT_EQ(VersionOfSession(), NewestSchema());
    }

    void ExpectRefused()
    {
        EXPECT_FALSE(window->IsUpgraded());
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(Outcome().contains(u"tollbrook-db upgrade --dsn "_s + Dsn()));
        EXPECT_TRUE(Find<QPushButton>("upgrade").isEnabled());
        EXPECT_EQ(VersionOfSession(), kOld);
    }

    // Somebody else with the database, until it goes.
    struct Other
    {
        explicit Other(const QString &dsn)
        {
            if (dsn == u"sqlite"_s) {
                process.start(u"tail"_s, {u"-f"_s, test_data_source::SqliteFile(dsn)});
                EXPECT_TRUE(process.waitForStarted());
            } else {
                EXPECT_TRUE(database.Open(dsn));
            }
        }
        ~Other()
        {
            process.kill();
            process.waitForFinished();
        }
        Other(const Other &) = delete;
        Other &operator=(const Other &) = delete;

        QProcess process;
        DirectConnection database;
    };

    QTemporaryDir files;
    ScriptedPrompt prompt;
    ChangeNews news;
    std::optional<StartedProgram> program;
    std::optional<SessionThread> session;
    std::optional<AppServices> services;
    std::optional<UpgradeDialog> window;
};
TB_ON_EVERY_ENGINE(UpgradeWindow);

const QString kRenamed = u"Group 91, called \"STAFF\" as another one is, is named \"STAFF (2)\"."_s;

} // namespace

TEST_P(UpgradeWindow, AsSmallAsItMayBeCoversNoText)
{
    window->resize(1, 1);
    QCoreApplication::processEvents();
    for (const char *name : {"intro", "alone"}) {
        const auto &text = Find<QLabel>(name);
        EXPECT_GE(text.height(), text.heightForWidth(text.width())) << name;
        EXPECT_FALSE(text.geometry().intersects(Find<QPlainTextEdit>("log").geometry())) << name;
    }
}

TEST_P(UpgradeWindow, SaysWhatItWouldDoAndDoesNothingWhenItIsClosed)
{
    const QString intro = Find<QLabel>("intro").text();
    EXPECT_TRUE(intro.contains(u"\"%1\" have version %2"_s.arg(Dsn()).arg(kOld)));
    EXPECT_TRUE(Log().contains(u"step 2: group-names"_s));
    EXPECT_TRUE(Log().endsWith(kRenamed));
    EXPECT_FALSE(Find<QProgressBar>("progress").isVisible());
    QTest::keyClick(&*window, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->IsUpgraded());
    EXPECT_EQ(VersionOfSession(), kOld);
}

TEST_P(UpgradeWindow, UpgradesBehindABackup)
{
    QTest::keyClick(&*window, Qt::Key_Return);
    EXPECT_TRUE(Find<QProgressBar>("progress").isVisible());
    EXPECT_FALSE(Find<QPushButton>("upgrade").isEnabled());
    QTest::keyClick(&*window, Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible()) << "nothing can take it back";
    AwaitRest();
    ExpectUpgraded();
    EXPECT_TRUE(Log().contains(u"The backup is in "_s + files.filePath(u"before"_s)));
    EXPECT_TRUE(Log().endsWith(kRenamed));
    EXPECT_TRUE(QFile::exists(files.filePath(u"before"_s)));
    QTest::keyClick(&*window, Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
}

TEST_P(UpgradeWindow, UpgradesWithoutABackupWhenNoneIsWanted)
{
    QTest::mouseClick(&Find<QCheckBox>("backsUp"), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(Find<QLineEdit>("file").isEnabled());
    EXPECT_FALSE(Find<QPushButton>("browse").isEnabled());
    Click("upgrade");
    AwaitRest();
    ExpectUpgraded();
    EXPECT_FALSE(QFile::exists(files.filePath(u"before"_s)));
}

TEST_P(UpgradeWindow, LeavesTheTablesWhereTheBackupCannotBeMade)
{
    Find<QLineEdit>("file").clear();
    Click("upgrade");
    EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Please enter the file of the backup"_s});
    QTest::keyClicks(&Find<QLineEdit>("file"), files.filePath(u"no/such/folder"_s));
    Click("upgrade");
    AwaitRest();
    ExpectRefused();
    EXPECT_TRUE(Log().contains(u"The backup was not made: "_s));
}

TEST_P(UpgradeWindow, IsRefusedWhileOthersAreConnectedAndGoesOnWithoutThem)
{
    {
        const Other other(Dsn());
        Click("upgrade");
        AwaitRest();
        ExpectRefused();
        EXPECT_TRUE(Log().contains(u"Others are connected"_s)) << qPrintable(Log());
        EXPECT_FALSE(QFile::exists(files.filePath(u"before"_s))) << "made for nothing";
    }
    Click("upgrade");
    AwaitRest();
    ExpectUpgraded();
}

// Each statement fails once; the next try comes to the end.
TEST_P(UpgradeWindow, KeepsTheOldTablesWhereAStatementFails)
{
    QTest::mouseClick(&Find<QCheckBox>("backsUp"), Qt::LeftButton, {}, QPoint(5, 5));
    const FaultyDriver driver(Dsn());
    int refused = 0;
    for (int failing = 1; !window->IsUpgraded(); ++failing) {
        ASSERT_LT(failing, 60);
        FaultyDriver::RefuseBesideAt(failing);
        Click("upgrade");
        AwaitRest();
        FaultyDriver::RefuseBesideAt(0);
        if (!window->IsUpgraded()) {
            ++refused;
            ExpectRefused();
        }
    }
    EXPECT_GT(refused, 8);
    ExpectUpgraded();
}

TEST_P(UpgradeWindow, DropsNothingThatTheSessionIsAt)
{
    std::atomic<bool> mayEnd = false;
    bool isDone = false;
    session->Start(
        &*session,
        [&mayEnd] {
            mayEnd.wait(false);
            return IsSessionOpen();
        },
        [&isDone](const Result<bool> &open) { isDone = open.value_or(false); });
    Click("upgrade");
    EXPECT_TRUE(Find<QProgressBar>("progress").isVisible());
    EXPECT_FALSE(isDone);
    mayEnd = true;
    mayEnd.notify_all();
    AwaitRest();
    EXPECT_TRUE(isDone);
    ExpectUpgraded();
}
