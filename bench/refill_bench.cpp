// Refills of the users list: against bare calls that fetch the same rows and group names, in a table of
// a million users against one of a thousand, and with the figures of the accounts against none.
#include "access/user_list.h"
#include "app/administrator_app.h"
#include "db/direct_connection.h"
#include "db/translation.h"
#include "support/bench_database.h"
#include "support/promise.h"
#include "ui/main/administrator_view.h"
#include "windows/bench_services.h"

#include <QEventLoop>
#include <QSet>

#include <sql.h>
#include <sqlext.h>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFew = 1100; // some are unmonitored: the list still has its 1000 rows
constexpr int kMany = 1'000'000;
constexpr SQLULEN kCapacity = kUserListCapacity;
constexpr int kColumns = 11;
constexpr int kGroupColumn = 8;
constexpr int kRepetitions = 15;

constexpr char kSelect[] =
    "SELECT username, stationname, fullname, ip_addr, blocked, user_id, blockreason, mac_addr, "
    "group_id, timeaccess, timeblocked FROM users WHERE monitored = true AND group_id<>0 ORDER BY "
    "username ASC";

// The least that brings the list's rows and its groups' names into memory.
class BareList
{
public:
    explicit BareList(const QString &dsn)
    {
        connection.Open(dsn) ? void() : std::abort();
        select = Translate(connection.Engine(), kSelect);
        name = Translate(connection.Engine(), "SELECT name FROM groups WHERE group_id = (?)");
    }

    size_t Read()
    {
        size_t bytes = 0;
        QSet<SQLINTEGER> groups;
        LimitRows(kCapacity);
        Execute(select);
        BindColumns(kColumns);
        while (SQL_SUCCEEDED(SQLFetch(connection.Handle()))) {
            for (const auto &column : columns) {
                bytes += std::strlen(column);
            }
            groups.insert(std::atoi(columns[kGroupColumn]));
        }
        Close();
        LimitRows(0);
        for (SQLINTEGER group : std::as_const(groups)) {
            bytes += ReadName(group);
        }
        return bytes;
    }

private:
    size_t ReadName(SQLINTEGER &group)
    {
        SQLLEN indicator = SQL_NTS;
        SQLBindParameter(connection.Handle(),
                         1,
                         SQL_PARAM_INPUT,
                         SQL_C_SLONG,
                         SQL_INTEGER,
                         0,
                         0,
                         &group,
                         0,
                         &indicator);
        Execute(name);
        BindColumns(1);
        while (SQL_SUCCEEDED(SQLFetch(connection.Handle()))) { }
        Close();
        SQLFreeStmt(connection.Handle(), SQL_RESET_PARAMS);
        return std::strlen(columns[0]);
    }

    void Execute(std::string &statement)
    {
        SQLExecDirect(connection.Handle(), reinterpret_cast<SQLCHAR *>(statement.data()), SQL_NTS);
    }

    void BindColumns(SQLUSMALLINT count)
    {
        for (SQLUSMALLINT column = 0; column < count; ++column) {
            SQLBindCol(connection.Handle(),
                       column + 1,
                       SQL_C_CHAR,
                       columns[column],
                       sizeof columns[column],
                       &indicators[column]);
        }
    }

    void Close()
    {
        SQLCloseCursor(connection.Handle());
        SQLFreeStmt(connection.Handle(), SQL_UNBIND);
    }

    void LimitRows(SQLULEN rows)
    {
        SQLSetStmtAttr(connection.Handle(),
                       SQL_ATTR_MAX_ROWS,
                       reinterpret_cast<SQLPOINTER>(rows), // NOLINT: the value travels so
                       SQL_IS_UINTEGER);
    }

    DirectConnection connection;
    std::string select;
    std::string name;
    char columns[kColumns][255] = {};
    SQLLEN indicators[kColumns] = {};
};

void RefillBare(benchmark::State &state, const QString &engine)
{
    BareList list(BenchDatabase(engine, kFew));
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(list.Read());
    }
}

// Until the rows stand in the list; they are not painted, and so not in the bare reading's way.
struct Refill
{
    int users = kFew;
    bool withAccounts = false;
    int order = user_order::kUserName;
};

void RefillList(benchmark::State &state, const QString &engine, const Refill &refilled)
{
    const BenchServices bench(BenchDatabase(engine, refilled.users));
    const FrameDialogs dialogs;
    CAdministratorView view(bench.Services(), dialogs, nullptr);
    view.resize(900, 500);
    view.show();
    view.LoadColumns();
    QApplication::processEvents();
    if (refilled.withAccounts) {
        view.ToggleColumn(UserColumn::Used);
        view.ToggleColumn(UserColumn::Left);
    }
    while (view.IsReading()) { // what the columns have brought about
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    view.setUpdatesEnabled(false);
    QEventLoop loop;
    QObject::connect(&view, &CAdministratorView::Filled, &loop, &QEventLoop::quit);
    const auto refill = [&] {
        view.FillList(refilled.order, true);
        loop.exec();
    };
    refill();
    double slowest = 0; // seconds
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        refill();
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        slowest = std::max(slowest, spent.count());
    }
    state.counters["s"] = slowest;
    if (!view.WasRead() || view.RowCount() != kUserListCapacity) {
        state.SkipWithError("the list is not full");
    }
}

} // namespace

int main(int argc, char **argv)
{
    const CAdministratorApp app(argc, argv);
    std::vector<Promise> promises;
    std::vector<Bound> bounds;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto... function) {
            benchmark::RegisterBenchmark(
                name(what).c_str(), function..., QString::fromLatin1(engine))
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("refill of 1000, bare", RefillBare);
        add("refill of 1000 users",
            [](benchmark::State &state, const QString &of) { RefillList(state, of, {}); });
        add("refill of 1000 users with their accounts",
            [](benchmark::State &state, const QString &of) {
                RefillList(state, of, {.withAccounts = true});
            });
        add("1000000 users by what is left", [](benchmark::State &state, const QString &of) {
            RefillList(state, of, {kMany, true, user_order::kLeft});
        });
        add("refill of 1000000 users",
            [](benchmark::State &state, const QString &of) { RefillList(state, of, {kMany}); });
        promises.push_back({name("refill of 1000 users"), name("refill of 1000, bare"), 1.5});
        promises.push_back({name("refill of 1000000 users"), name("refill of 1000 users"), 2.0});
        bounds.push_back({name("1000000 users by what is left"), "s", 1.0});
        promises.push_back(
            {name("refill of 1000 users with their accounts"), name("refill of 1000 users"), 2.0});
    }
    return RunAndCompare(argc, argv, promises, kRepetitions, bounds);
}
