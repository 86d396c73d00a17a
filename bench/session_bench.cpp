// Statements on single users: through the session, and through the same calls of the bare interface.
#include "db/dialect.h"
#include "db/direct_connection.h"
#include "db/session.h"
#include "support/bench_database.h"
#include "support/promise.h"

#include <sql.h>
#include <sqlext.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 1000;
constexpr char kUpdate[] = "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)";
constexpr char kSelect[] = "SELECT traflim, timelim FROM users WHERE user_id = (?) ";

class BareSession
{
public:
    explicit BareSession(const QString &dsn)
    {
        connection.Open(dsn) ? void() : std::abort();
        update = Translate(connection.Engine(), kUpdate);
        select = Translate(connection.Engine(), kSelect);
    }

    void Update(SQLINTEGER reason, SQLINTEGER user)
    {
        Bind(1, reason);
        Bind(2, user);
        Execute(update);
        SQLFreeStmt(connection.Handle(), SQL_RESET_PARAMS);
    }

    // The two columns of the user's row.
    int Select(SQLINTEGER user)
    {
        Bind(1, user);
        Execute(select);
        SQLLEN indicators[2] = {};
        SQLBindCol(
            connection.Handle(), 1, SQL_C_CHAR, columns[0], sizeof columns[0], &indicators[0]);
        SQLBindCol(
            connection.Handle(), 2, SQL_C_CHAR, columns[1], sizeof columns[1], &indicators[1]);
        while (SQL_SUCCEEDED(SQLFetch(connection.Handle()))) { }
        SQLCloseCursor(connection.Handle());
        SQLFreeStmt(connection.Handle(), SQL_UNBIND);
        SQLFreeStmt(connection.Handle(), SQL_RESET_PARAMS);
        return std::atoi(columns[0]) + std::atoi(columns[1]);
    }

private:
    void Bind(SQLUSMALLINT number, SQLINTEGER &value)
    {
        SQLBindParameter(connection.Handle(),
                         number,
                         SQL_PARAM_INPUT,
                         SQL_C_SLONG,
                         SQL_INTEGER,
                         0,
                         0,
                         &value,
                         0,
                         &indicator);
    }

    void Execute(std::string &statement)
    {
        SQLExecDirect(connection.Handle(), reinterpret_cast<SQLCHAR *>(statement.data()), SQL_NTS);
    }

    DirectConnection connection;
    std::string update;
    std::string select;
    char columns[2][255] = {};
    SQLLEN indicator = SQL_NTS;
};

void UpdateThroughSession(benchmark::State &state, const QString &engine)
{
    ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData());
    for ([[maybe_unused]] auto _ : state) {
        for (quint32 user = 1; user <= kUsers; ++user) {
            Execute(kUpdate, 3U, user);
        }
    }
    DisconnectDatabase();
}

void UpdateBare(benchmark::State &state, const QString &engine)
{
    BareSession session(BenchDatabase(engine, kUsers));
    for ([[maybe_unused]] auto _ : state) {
        for (SQLINTEGER user = 1; user <= kUsers; ++user) {
            session.Update(3, user);
        }
    }
}

void SelectThroughSession(benchmark::State &state, const QString &engine)
{
    ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData());
    for ([[maybe_unused]] auto _ : state) {
        for (quint32 user = 1; user <= kUsers; ++user) {
            RunQuery(kSelect, FetchMode::All, user);
            benchmark::DoNotOptimize(queryResult.Integer(1) + queryResult.Integer(2));
        }
    }
    DisconnectDatabase();
}

void SelectBare(benchmark::State &state, const QString &engine)
{
    BareSession session(BenchDatabase(engine, kUsers));
    for ([[maybe_unused]] auto _ : state) {
        for (SQLINTEGER user = 1; user <= kUsers; ++user) {
            benchmark::DoNotOptimize(session.Select(user));
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Promise> promises;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto function) {
            benchmark::RegisterBenchmark(name(what).c_str(), function, QString::fromLatin1(engine))
                ->Unit(benchmark::kMillisecond);
        };
        add("1000 updates, session", UpdateThroughSession);
        add("1000 updates, bare", UpdateBare);
        add("1000 reads, session", SelectThroughSession);
        add("1000 reads, bare", SelectBare);
        promises.push_back({name("1000 updates, session"), name("1000 updates, bare"), 1.1});
        promises.push_back({name("1000 reads, session"), name("1000 reads, bare"), 1.1});
    }
    return RunAndCompare(argc, argv, promises);
}
