#include "support/core/faulty_driver.h"

#include "db/direct_connection.h"
#include "db/session.h"
#include "support/core/statement_log.h"

#include <sql.h>
#include <sqlext.h>

#include <condition_variable>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum class Fault { None, Refuse, Skip, Conflict, Lock, LoseBefore, LoseAfter, Hold, HoldAnswer };

struct Plan
{
    std::mutex mutex; // guards what follows
    std::condition_variable changed;
    bool active = false;
    QString dsn;
    QStringList statements;
    int counted = 0;
    int firstFaulty = 0;
    int lastFaulty = 0;
    Fault fault = Fault::None;
    bool holdsConnects = false;
    bool holdsCancels = false;
    bool refusesConnects = false;
    int held = 0;
    int release = 0; // how often was released
    int connects = 0;
    int cancels = 0;
    int countedBeside = 0; // of connections beside the sessions
    int refusedBeside = 0;
};

Plan &ThePlan()
{
    static auto *const plan = new Plan; // a thread that was given up may outlive all else
    return *plan;
}

template <typename Function>
Function *DriverManagers(const char *name)
{
    auto *const function = reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
    EXPECT_NE(function, nullptr) << name;
    return function;
}

SQLRETURN Execute(SQLHSTMT statement, SQLCHAR *text, SQLINTEGER length)
{
    static auto *const function = DriverManagers<decltype(SQLExecDirect)>("SQLExecDirect");
    return function(statement, text, length);
}

// A text of the test's own in place of the statement, whose values it does not take.
SQLRETURN ExecuteInstead(SQLHSTMT statement, std::string text)
{
    SQLFreeStmt(statement, SQL_RESET_PARAMS);
    SQLSetStmtAttr(statement, SQL_ATTR_MAX_ROWS, nullptr, 0); // one driver adds it to every text
    return Execute(statement, reinterpret_cast<SQLCHAR *>(text.data()), SQL_NTS);
}

void HoldUntilReleased(std::unique_lock<std::mutex> &lock)
{
    Plan &plan = ThePlan();
    const int release = plan.release;
    ++plan.held;
    plan.changed.notify_all();
    plan.changed.wait(lock, [&] { return plan.release != release; });
    --plan.held;
    plan.changed.notify_all();
}

// The number under which the server knows the session's connection.
std::string ServersNumber(bool onPostgresql)
{
    SQLHSTMT statement = SQL_NULL_HANDLE;
    SQLAllocHandle(SQL_HANDLE_STMT, dbSession.connection, &statement);
    ExecuteInstead(statement, onPostgresql ? "SELECT pg_backend_pid()" : "SELECT connection_id()");
    char number[32] = "";
    SQLLEN indicator = 0;
    SQLFetch(statement);
    SQLGetData(statement, 1, SQL_C_CHAR, number, sizeof number, &indicator);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    EXPECT_STRNE(number, "") << "the session's connection is not known";
    return number;
}

// Ends the session's connection on the server; when this returns, it is gone there.
void EndConnection(const QString &dsn)
{
    DirectConnection server;
    ASSERT_TRUE(server.Open(dsn)) << qPrintable(server.Error());
    const bool onPostgresql = &server.Engine() == &kPostgresql;
    ASSERT_TRUE(onPostgresql || &server.Engine() == &kMariadb) << "there is no connection to lose";
    const QString number = QString::fromStdString(ServersNumber(onPostgresql));
    const QString end = onPostgresql ? u"SELECT pg_terminate_backend(%1)"_s : u"KILL %1"_s;
    EXPECT_TRUE(server.Run(end.arg(number)));
    const QString look = onPostgresql
        ? u"SELECT pid FROM pg_stat_activity WHERE pid = "_s + number
        : u"SELECT id FROM information_schema.processlist WHERE id = "_s + number;
    while (!server.Rows(look).value_or(QList<QStringList>()).isEmpty()) { }
}

// A statement that fails as the server itself would let the real one fail.
std::string Signal(const char *sqlState, int mariadbNumber)
{
    if (&SessionDialect() == &kPostgresql) {
        return std::string("DO $$ BEGIN RAISE SQLSTATE '") + sqlState + "'; END $$";
    }
    return std::string("SIGNAL SQLSTATE '") + (mariadbNumber == 1213 ? sqlState : "HY000")
        + "' SET MYSQL_ERRNO = " + std::to_string(mariadbNumber) + ", MESSAGE_TEXT = 'as wished'";
}

SQLRETURN
ExecuteAnswerLost(SQLHSTMT statement, SQLCHAR *text, SQLINTEGER length, const QString &dsn)
{
    const SQLRETURN code = Execute(statement, text, length);
    EXPECT_TRUE(SQL_SUCCEEDED(code) || code == SQL_NO_DATA) << text;
    SQLFreeStmt(statement, SQL_CLOSE);
    EndConnection(dsn);
    return ExecuteInstead(statement, "SELECT 1");
}

SQLRETURN ExecuteAnswerHeld(SQLHSTMT statement, SQLCHAR *text, SQLINTEGER length)
{
    const SQLRETURN code = Execute(statement, text, length);
    std::unique_lock lock(ThePlan().mutex);
    HoldUntilReleased(lock);
    return code;
}

SQLRETURN ExecuteFaulty(Fault fault, SQLHSTMT statement, SQLCHAR *text, SQLINTEGER length)
{
    const QString dsn = ThePlan().dsn;
    switch (fault) {
    case Fault::Refuse:
        return ExecuteInstead(statement, "refused");
    case Fault::Skip:
        return ExecuteInstead(statement, "UPDATE users SET mode = mode WHERE user_id < 0");
    case Fault::Conflict:
        return ExecuteInstead(statement, Signal("40001", 1213));
    case Fault::Lock:
        return ExecuteInstead(statement, Signal("55P03", 1205));
    case Fault::LoseBefore:
        EndConnection(dsn);
        break;
    case Fault::LoseAfter:
        return ExecuteAnswerLost(statement, text, length, dsn);
    case Fault::HoldAnswer:
        return ExecuteAnswerHeld(statement, text, length);
    default:
        break;
    }
    return Execute(statement, text, length);
}

// What is to become of the session's next statement; returns when it is no longer held.
Fault NextFault(const SQLCHAR *text)
{
    Plan &plan = ThePlan();
    std::unique_lock lock(plan.mutex);
    if (!plan.active) {
        return Fault::None;
    }
    plan.statements << QString::fromUtf8(reinterpret_cast<const char *>(text));
    ++plan.counted;
    if (plan.counted < plan.firstFaulty || plan.counted > plan.lastFaulty) {
        return Fault::None;
    }
    const Fault fault = plan.fault;
    if (fault == Fault::Hold) {
        HoldUntilReleased(lock);
    }
    return fault;
}

bool IsRefusedBeside()
{
    Plan &plan = ThePlan();
    const std::lock_guard lock(plan.mutex);
    return ++plan.countedBeside == plan.refusedBeside;
}

void Let(int number, Fault fault, int count = 1)
{
    Plan &plan = ThePlan();
    const std::lock_guard lock(plan.mutex);
    plan.firstFaulty = plan.counted + number;
    plan.lastFaulty = plan.firstFaulty + count - 1;
    plan.fault = fault;
}

} // namespace

SQLRETURN SQLExecDirect(SQLHSTMT statement, SQLCHAR *text, SQLINTEGER length)
{
    if (statement != dbSession.statement) {
        return IsRefusedBeside() ? ExecuteInstead(statement, "refused")
                                 : Execute(statement, text, length);
    }
    const Fault fault = NextFault(text);
    if (fault == Fault::None) {
        statement_log::Add(reinterpret_cast<const char *>(text));
    }
    return ExecuteFaulty(fault, statement, text, length);
}

// NOLINTNEXTLINE(readability-function-size): they are the interface's parameters
SQLRETURN SQLDriverConnect(SQLHDBC connection,
                           SQLHWND window,
                           SQLCHAR *text,
                           SQLSMALLINT length,
                           SQLCHAR *completed,
                           SQLSMALLINT most,
                           SQLSMALLINT *size,
                           SQLUSMALLINT prompt)
{
    static auto *const function = DriverManagers<decltype(SQLDriverConnect)>("SQLDriverConnect");
    std::string nowhere = "DSN=nowhere";
    Plan &plan = ThePlan();
    std::unique_lock lock(plan.mutex);
    if (plan.active && connection == dbSession.connection) {
        ++plan.connects;
        if (plan.holdsConnects) {
            HoldUntilReleased(lock);
        }
        if (plan.refusesConnects) {
            text = reinterpret_cast<SQLCHAR *>(nowhere.data());
        }
    }
    lock.unlock();
    return function(connection, window, text, length, completed, most, size, prompt);
}

SQLRETURN SQLCancel(SQLHSTMT statement)
{
    static auto *const function = DriverManagers<decltype(SQLCancel)>("SQLCancel");
    Plan &plan = ThePlan();
    std::unique_lock lock(plan.mutex);
    ++plan.cancels;
    if (plan.active && plan.holdsCancels) {
        HoldUntilReleased(lock);
    }
    lock.unlock();
    return function(statement);
}

FaultyDriver::FaultyDriver(const QString &dsn)
{
    Plan &plan = ThePlan();
    const std::lock_guard lock(plan.mutex);
    EXPECT_FALSE(plan.active) << "only one at a time";
    plan.active = true;
    plan.dsn = dsn;
    plan.statements.clear();
    plan.counted = plan.firstFaulty = plan.lastFaulty = plan.connects = plan.cancels = 0;
    plan.fault = Fault::None;
    plan.refusesConnects = false;
}

FaultyDriver::~FaultyDriver()
{
    Release();
    const std::lock_guard lock(ThePlan().mutex);
    ThePlan().active = false;
}

QStringList FaultyDriver::Take()
{
    const std::lock_guard lock(ThePlan().mutex);
    return std::exchange(ThePlan().statements, {});
}

void FaultyDriver::Refuse(int number)
{
    Let(number, Fault::Refuse);
}

void FaultyDriver::Skip(int number, int count)
{
    Let(number, Fault::Skip, count);
}

void FaultyDriver::Conflict(int number)
{
    Let(number, Fault::Conflict);
}

void FaultyDriver::Lock(int number)
{
    Let(number, Fault::Lock);
}

void FaultyDriver::LoseBefore(int number)
{
    Let(number, Fault::LoseBefore);
}

void FaultyDriver::LoseAfter(int number)
{
    Let(number, Fault::LoseAfter);
}

void FaultyDriver::Lose() const
{
    EndConnection(ThePlan().dsn);
}

void FaultyDriver::Hold(int number)
{
    Let(number, Fault::Hold);
}

void FaultyDriver::HoldAnswer(int number)
{
    Let(number, Fault::HoldAnswer);
}

int FaultyDriver::RefuseBesideAt(int number)
{
    const std::lock_guard lock(ThePlan().mutex);
    ThePlan().refusedBeside = number;
    return std::exchange(ThePlan().countedBeside, 0);
}

void FaultyDriver::HoldConnects()
{
    const std::lock_guard lock(ThePlan().mutex);
    ThePlan().holdsConnects = true;
}

void FaultyDriver::HoldCancels()
{
    const std::lock_guard lock(ThePlan().mutex);
    ThePlan().holdsCancels = true;
}

void FaultyDriver::RefuseConnects(bool refuse)
{
    const std::lock_guard lock(ThePlan().mutex);
    ThePlan().refusesConnects = refuse;
}

bool FaultyDriver::IsHolding(std::chrono::milliseconds patience)
{
    Plan &plan = ThePlan();
    std::unique_lock lock(plan.mutex);
    return plan.changed.wait_for(lock, patience, [&plan] { return plan.held > 0; });
}

void FaultyDriver::Release()
{
    Plan &plan = ThePlan();
    std::unique_lock lock(plan.mutex);
    plan.holdsConnects = plan.holdsCancels = false;
    ++plan.release;
    plan.changed.notify_all();
    plan.changed.wait(lock, [&plan] { return plan.held == 0; });
}

int FaultyDriver::Connects()
{
    const std::lock_guard lock(ThePlan().mutex);
    return ThePlan().connects;
}

int FaultyDriver::Cancels()
{
    const std::lock_guard lock(ThePlan().mutex);
    return ThePlan().cancels;
}
