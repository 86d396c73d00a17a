// Runs one set of cases on every database engine: SQLite, PostgreSQL and MariaDB, all for real.
//
//     class Blocking : public EngineFixture {};
//     TB_ON_EVERY_ENGINE(Blocking);
//     TEST_P(Blocking, SetsTheReason) { ... }
//
// Each case starts from the schema with its first rows and nothing else, and the session is open on
// it; RowsOf and EveryRow (database_fixture.h) read it. The test program says SERVERS in its tb_test
// line, and ctest then starts the two servers before it and stops them afterwards. By hand:
//
//     tests/support/servers/servers start build/dev/servers     (once, and "stop" at the end)
//
// Without the servers the cases fail.
#pragma once

#include "db/direct_connection.h"
#include "support/core/database_fixture.h"

#include <functional>

class EngineFixture : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override;
    void TearDown() override;

    // "sqlite", "postgresql" or "mariadb".
    [[nodiscard]] static QString Engine();

    // The data source's name, for a second connection.
    [[nodiscard]] static QString Dsn();

    // The data source of a program's own account, which has the rights that the product gives it
    // (program_accounts.h); the embedded engine has no accounts.
    [[nodiscard]] static QString DsnOf(const char *role);

    // Runs a statement beside the session, in the spelling of the code.
    static void RunBeside(const char *sqlText, const SqlValues &values = {});

    // Servers: returns once so many connections to the database wait for locks that others hold.
    static void AwaitLockWait(int connections = 1);

    // Asks until `holds` is true, once at least; false after ten seconds. The tests beside this one
    // have databases of their own at the same server, and some of what it tells is told of all.
    static bool IsTrueInTime(const std::function<bool()> &holds);

    // Servers: the numbers of the other connections to the database, or of those whose running statement
    // holds `words`.
    static QList<quint32> OtherConnections(const QString &words = {});

    // Has the server end the other connections to the database, or those whose running statement
    // holds `words`; how many those were.
    static int EndOtherConnections(const QString &words = {});
};

[[nodiscard]] inline std::string EngineName(const testing::TestParamInfo<const char *> &engine)
{
    return engine.param;
}

#define TB_ON_EVERY_ENGINE(fixture)                                                                \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Engines, fixture, testing::Values("sqlite", "postgresql", "mariadb"), EngineName)

// For what only a database server can do.
#define TB_ON_EVERY_SERVER(fixture)                                                                \
    INSTANTIATE_TEST_SUITE_P(Servers, fixture, testing::Values("postgresql", "mariadb"), EngineName)
