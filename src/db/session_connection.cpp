// The session's connection: how it is opened, given back, lost and opened again.
#include "base/text.h"
#include "db/account.h"
#include "db/data_source.h"
#include "db/failure_log.h"
#include "db/schema_version.h"
#include "db/session_limits.h"
#include "db/session_state.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <atomic>
#include <odbcinst.h>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using namespace session;
using Kind = Failure::Kind;

constinit thread_local DbSession dbSession {};
constinit thread_local QueryResult queryResult {};

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SessionConnection)
};

// Milliseconds that the embedded engine's driver waits for a lock within one call, where no cancel
// reaches it. It tries twice, so that a call takes a little more than double.
constexpr int kWaitWithinCall = 40;

// What a server says of itself; the numbers are those of the dialect's query.
enum class Server { NotWritable = 0, Alone = 1, InCluster = 2 };

struct Handles
{
    SQLHANDLE environment;
    SQLHANDLE connection;
    SQLHANDLE statement;
    SQLHANDLE canceller;
};

SQLRETURN Free(const Handles &handles)
{
    SQLFreeHandle(SQL_HANDLE_STMT, handles.canceller);
    SQLFreeHandle(SQL_HANDLE_STMT, handles.statement);
    SQLDisconnect(handles.connection);
    SQLFreeHandle(SQL_HANDLE_DBC, handles.connection);
    return SQLFreeHandle(SQL_HANDLE_ENV, handles.environment);
}

// Where a cancel that hangs still works on the handles, they are freed when it has come to its end: an
// open connection would go on holding the locks of its transaction.
void FreeHandles()
{
    State &state = Current();
    const Handles handles {dbSession.environment,
                           dbSession.connection,
                           dbSession.statement,
                           std::exchange(state.canceller, nullptr)};
    dbSession = {};
    state.rollsBack = false;
    if (!state.watch || state.watch->IsAbandoned()) {
        const auto noCancel =
            state.watch ? state.watch->HandlesAtLast() : std::unique_lock<std::timed_mutex>();
        Free(handles);
    } else if (const auto noCancel = state.watch->Handles()) {
        Watched(nullptr, [&] { return Free(handles); });
    } else {
        std::thread([handles, watch = state.watch] {
            const auto atLast = watch->HandlesAtLast();
            Free(handles);
        }).detach();
    }
}

// The time limits stand in the connection's text: one driver takes its limit nowhere else, another has
// a handler of its own in place of what the engine offers. Each leaves aside what it does not know.
QByteArray TextWithLimits(const QByteArray &dsn, const QByteArray &servers)
{
    const QByteArray only = servers.isEmpty()
        ? servers
        : QByteArray(Current().dialect->serversKey) + '=' + servers + ';';
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(Limits().connect).count();
    return OpeningText(QString::fromUtf8(dsn), Current().account, AbsentFile::IsRefused) + ';'
        + only + "CONN_TIMEOUT=" + QByteArray::number(qint64 {seconds})
        + ";Timeout=" + QByteArray::number(kWaitWithinCall);
}

// Without a password in the text every driver takes the data source's own.
bool Connect(const QByteArray &dsn, const QByteArray &servers)
{
    const QByteArray text = TextWithLimits(dsn, servers);
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(Limits().connect).count();
    SQLSetConnectAttr(
        dbSession.connection, SQL_ATTR_LOGIN_TIMEOUT, odbc::Value(seconds), SQL_IS_UINTEGER);
    const SQLRETURN code = Watched(nullptr, [&] {
        return SQLDriverConnect(dbSession.connection,
                                nullptr,
                                odbc::Text(text.constData()),
                                SQL_NTS,
                                nullptr,
                                0,
                                nullptr,
                                SQL_DRIVER_NOPROMPT);
    });
    if (!odbc::Succeeded(code)) {
        Failure failure = Diagnosed(SQL_HANDLE_DBC, dbSession.connection, {});
        failure.kind = Kind::ConnectionLost;
        failure.text = RefusedConnectionText(QString::fromUtf8(dsn), failure.text);
        Fail(std::move(failure));
    }
    return odbc::Succeeded(code);
}

// False for an engine that is not supported.
bool ChooseDialect()
{
    std::array<char, 64> name {};
    SQLSMALLINT length = 0;
    SQLGetInfo(dbSession.connection, SQL_DBMS_NAME, name.data(), name.size(), &length);
    const Dialect *const found = DialectFor(name.data());
    if (found == nullptr) {
        Fail(Told(Kind::Refused,
                  {},
                  Words::tr("The database engine \"%1\" is not supported.")
                      .arg(TextFromUtf8(name.data()))));
        return false;
    }
    State &state = Current();
    if (const auto problem =
            NoDatabaseText(*found, dbSession.connection, QString::fromUtf8(state.dsn))) {
        Fail(Told(Kind::Refused, {}, *problem));
        return false;
    }
    state.dialect = found;
    return true;
}

// Two drivers' cancel throws away what the statement holds while another thread works with it: there a
// statement that nobody uses stands in, since it stops all that its connection does.
bool AddCanceller()
{
    State &state = Current();
    return !state.dialect->cancelsConnection
        || odbc::Succeeded(SQLAllocHandle(SQL_HANDLE_STMT, dbSession.connection, &state.canceller));
}

bool TakesSettings(Server server)
{
    const Dialect &dialect = *Current().dialect;
    if (server == Server::InCluster && !RunOwn(dialect.clusterSettings)) {
        return false;
    }
    const char *const settings = dialect.settings;
    if (settings == nullptr) {
        return true;
    }
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(Limits().lock).count();
    const QByteArray text = QString::fromLatin1(settings)
                                .replace(u"%1"_s, QString::number(Limits().lock.count()))
                                .replace(u"%2"_s, QString::number(seconds))
                                .toLatin1();
    return RunOwn(text.constData());
}

// What a query of the session's own gives; nothing when it fails.
std::optional<int> AskForNumber(const char *query)
{
    if (!RunOwn(query)) {
        return std::nullopt;
    }
    SQLINTEGER answer = 0;
    const SQLRETURN code =
        Watched(nullptr, [&] { return odbc::FetchNumber(dbSession.statement, answer); });
    if (!odbc::Succeeded(code)) {
        Fail(Diagnosed(SQL_HANDLE_STMT, dbSession.statement, query));
    }
    SQLFreeStmt(dbSession.statement, SQL_CLOSE);
    return odbc::Succeeded(code) ? std::optional(answer) : std::nullopt;
}

// A server that takes no changes would refuse each of them with words of its own.
Server AskServer()
{
    const char *const query = Current().dialect->writable;
    if (query == nullptr) {
        return Server::Alone;
    }
    const std::optional<int> answer = AskForNumber(query);
    if (answer == 0) {
        Fail(Told(
            Kind::NotWritable,
            {},
            Words::tr("The database server is a read-only standby, or cut off from its cluster.")));
    }
    return static_cast<Server>(answer.value_or(0));
}

// Settles with the server that accepted the connection how the session works with it.
bool SuitsServer()
{
    const Server server = AskServer();
    return server != Server::NotWritable && TakesSettings(server);
}

// Of a newer schema it is not known what may be written, nor what the rows say.
bool KnowsSchema()
{
    State &state = Current();
    const auto version = ReadSchemaVersion(
        *state.dialect, [](const std::string &query) { return AskForNumber(query.c_str()); });
    if (!version) {
        return false;
    }
    state.schemaVersion = *version;
    if (const auto refused = RefusedSchemaText(*version)) {
        Fail(Told(Kind::NewerSchema, {}, *refused));
        return false;
    }
    return true;
}

bool Allocate()
{
    return odbc::Succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &dbSession.environment))
        && odbc::Succeeded(SQLSetEnvAttr(
            dbSession.environment, SQL_ATTR_ODBC_VERSION, odbc::Value(SQL_OV_ODBC3), 0))
        && odbc::Succeeded(
               SQLAllocHandle(SQL_HANDLE_DBC, dbSession.environment, &dbSession.connection));
}

// `servers` replaces those of the data source, unless it is empty.
bool OpenAt(const QByteArray &dsn, const QByteArray &servers)
{
    // Exactly SQL_SUCCESS for the statement: unlike the steps before it, this one does not accept
    // information.
    const bool opened = Allocate() && Connect(dsn, servers)
        && SQLAllocHandle(SQL_HANDLE_STMT, dbSession.connection, &dbSession.statement)
            == SQL_SUCCESS
        && ChooseDialect() && AddCanceller() && SuitsServer() && KnowsSchema();
    if (!opened) {
        FreeHandles();
        return false;
    }
    static std::atomic<quint64> connections {0};
    Current().connection = ++connections;
    return true;
}

// The data source's servers from the one numbered `first` on, and then those before it: of a single one
// the driver does not see the port. Empty when there is none of that number.
QByteArray ServersFrom(const QByteArray &dsn, qsizetype first)
{
    const char *const key = Current().dialect->serversKey;
    std::array<char, 1024> text {};
    if (key != nullptr) {
        SQLGetPrivateProfileString(
            dsn.constData(), key, "", text.data(), static_cast<int>(text.size()), "odbc.ini");
    }
    const QByteArrayList servers = QByteArray(text.data()).split(',');
    return first < servers.size() ? (servers.mid(first) + servers.first(first)).join(',')
                                  : QByteArray();
}

bool Open(const QByteArray &dsn)
{
    if (!IsDataSourceName(QString::fromUtf8(dsn))) {
        Fail(Told(Kind::ConnectionLost, {}, Words::tr("There is no data source of this name.")));
        return false;
    }
    Current().account = AccountOf(QString::fromUtf8(dsn));
    QByteArray servers;
    qsizetype first = 0;
    do {
        if (OpenAt(dsn, servers)) {
            return true;
        }
        servers = ServersFrom(dsn, ++first);
    } while (!servers.isEmpty() && Current().failure && Current().failure->kind == Kind::NotWritable
             && !IsAbandoned());
    return false;
}

} // namespace

Failure session::NeverOpened()
{
    return {.kind = Kind::ConnectionLost,
            .statement = {},
            .sqlState = {},
            .text = Words::tr("The database session is not open.")};
}

void session::Lose()
{
    FreeHandles();
    if (!IsCancelled() && !IsAbandoned()) {
        ReopenDatabase();
    }
}

int ConnectDatabase(const char *dsn)
{
    AimDatabase(dsn, {});
    return ReopenDatabase() ? 1 : 0;
}

void AimDatabase(const char *dsn, std::chrono::milliseconds pause)
{
    State &state = Current();
    state.dsn = dsn;
    state.written.reserve(4096);
    state.translated.reserve(4096);
    state.pause = std::max(pause, Limits().firstPause);
    state.nextTry = Clock::now() + pause;
}

void DisconnectDatabase()
{
    State &state = Current();
    state.dsn.clear();
    state.transaction = Transaction::None;
    if (dbSession.statement != nullptr) {
        FreeHandles();
    }
}

bool IsDatabaseOpen()
{
    return dbSession.statement != nullptr;
}

bool ReopenDatabase()
{
    if (IsDatabaseOpen()) {
        return true;
    }
    State &state = Current();
    state.failure.reset();
    if (Open(state.dsn)) {
        state.pause = Limits().firstPause;
        return true;
    }
    state.whyClosed = state.failure.value_or(NeverOpened());
    if (state.whyClosed.kind != Kind::NotWritable && state.whyClosed.kind != Kind::NewerSchema) {
        state.whyClosed.kind = Kind::ConnectionLost;
    }
    state.nextTry = Clock::now() + state.pause;
    state.pause = std::min(2 * state.pause, Limits().longestPause);
    return false;
}

int SessionSchemaVersion()
{
    return Current().schemaVersion;
}

quint64 SessionConnection()
{
    return Current().connection;
}

const Dialect &SessionDialect()
{
    return *Current().dialect;
}

void WatchCalls(std::shared_ptr<CallWatch> watch)
{
    Current().watch = std::move(watch);
}

// A connection on which a call was asked to stop is not used again: a server may hear of it late, and one
// driver is left within a transaction of its own.
void BeginWork()
{
    const auto &watch = Current().watch;
    if (watch && !watch->AreHandlesFresh() && IsDatabaseOpen()) {
        Lose();
    }
}

void EndWork()
{
    State &state = Current();
    const char *const query = state.dialect->endsReading;
    if (std::exchange(state.isReading, false) && query != nullptr && IsDatabaseOpen()) {
        SQLPrepare(dbSession.statement, odbc::Text(query), SQL_NTS);
    }
}

void AcceptCancel()
{
    if (const auto &watch = Current().watch) {
        watch->Accept();
        BeginWork();
    }
}

bool IsSessionGivenUp()
{
    return IsAbandoned();
}
