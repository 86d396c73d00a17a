#include "db/report_connection.h"

#include "base/text.h"
#include "db/account.h"
#include "db/data_source.h"
#include "db/dialect.h"
#include "db/extension_ban.h"
#include "db/failure_log.h"
#include "db/odbc.h"
#include "db/schema_version.h"
#include "db/translation.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <string>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportConnection)
};

// SQL_ATTR_ACCESS_MODE is accepted and ignored by all three drivers; these are not.
const char *ReadOnlyStatement(const Dialect &dialect)
{
    if (&dialect == &kPostgresql) {
        return "SET default_transaction_read_only=on";
    }
    return &dialect == &kMariadb ? "SET SESSION TRANSACTION READ ONLY" : "PRAGMA query_only=1";
}

// PostgreSQL sends amounts as texts, which its driver takes long to read, and in the user's locale.
SQLSMALLINT HostType(ReadAs as, const Dialect &dialect)
{
    if (as == ReadAs::Text || (as == ReadAs::Amount && &dialect == &kPostgresql)) {
        return SQL_C_CHAR;
    }
    return as == ReadAs::Integer ? SQL_C_SBIGINT : SQL_C_DOUBLE;
}

// Others could take back what was set up for the connection.
bool IsQuery(QStringView text)
{
    static const QRegularExpression kStart(u"^\\s*(SELECT|WITH)\\b"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    constexpr qsizetype kEnough = 256;
    return kStart.match(text.left(kEnough).toString()).hasMatch();
}

// One of the drivers sends all statements of a text, however the connection is set up.
bool HoldsMoreThanOne(QStringView text)
{
    QChar quote;
    for (const QChar c : text) {
        if (quote.isNull() && c == u';') {
            return true;
        }
        if (quote.isNull() && (c == u'\'' || c == u'"' || c == u'`')) {
            quote = c;
        } else if (c == quote) {
            quote = {};
        }
    }
    return false;
}

} // namespace

struct ReportConnection::Handles
{
    SQLHANDLE environment = SQL_NULL_HANDLE;
    SQLHANDLE connection = SQL_NULL_HANDLE;
    SQLHANDLE statement = SQL_NULL_HANDLE;
    SQLHANDLE canceller = SQL_NULL_HANDLE; // where the statement's own cancel would spoil it
    bool connected = false;
    const Dialect *dialect = &kSqlite;
    SQLULEN fetched = 0;

    ~Handles()
    {
        SQLFreeHandle(SQL_HANDLE_STMT, canceller);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        if (connected) {
            SQLEndTran(SQL_HANDLE_DBC, connection, SQL_ROLLBACK);
            SQLDisconnect(connection);
        }
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
        SQLFreeHandle(SQL_HANDLE_ENV, environment);
    }
};

struct ReportConnection::Column
{
    Column(ReadAs type, const Dialect &dialect) : hostType(HostType(type, dialect))
    {
        constexpr int kAmountBytes = 32; // digits, sign and exponent of any
        width = hostType != SQL_C_CHAR ? 8 : type == ReadAs::Text ? kTextBytes : kAmountBytes;
        bytes.resize(static_cast<size_t>(width) * kBlockRows);
        indicators.resize(kBlockRows);
    }

    [[nodiscard]] const char *At(int row) const
    {
        return bytes.data() + static_cast<qsizetype>(row) * width;
    }

    SQLSMALLINT hostType;
    int width;
    std::vector<char> bytes;
    std::vector<SQLLEN> indicators;
};

ReportConnection::ReportConnection() : handles(std::make_unique<Handles>()) { }

ReportConnection::~ReportConnection() = default;

std::unique_ptr<ReportConnection> ReportConnection::Open(const QString &dsn,
                                                         const QString &user,
                                                         const QString &password,
                                                         QString &problem)
{
    std::unique_ptr<ReportConnection> connection(new ReportConnection);
    const ExtensionBan ban;
    if (connection->Connect(dsn, user, password) && connection->ForbidExtensions(ban)
        && connection->KnowsSchema() && connection->ForbidWriting()) {
        return connection;
    }
    problem = connection->Problem();
    return nullptr;
}

// Every driver then takes the data source's own password.
qint16 ReportConnection::ConnectByText()
{
    const QByteArray text = OpeningText(source, account, AbsentFile::IsRefused);
    return SQLDriverConnect(handles->connection,
                            nullptr,
                            odbc::Text(text.constData()),
                            SQL_NTS,
                            nullptr,
                            0,
                            nullptr,
                            SQL_DRIVER_NOPROMPT);
}

// A password may hold what a text of a connection cannot.
qint16 ReportConnection::ConnectBy(const QString &password)
{
    const QByteArray dsn = source.toUtf8();
    const QByteArray user = account.toUtf8();
    const QByteArray secret = password.toUtf8();
    return SQLConnect(handles->connection,
                      odbc::Text(dsn.constData()),
                      SQL_NTS,
                      odbc::Text(user.constData()),
                      SQL_NTS,
                      odbc::Text(secret.constData()),
                      SQL_NTS);
}

bool ReportConnection::Connect(const QString &dsn, const QString &user, const QString &password)
{
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handles->environment);
    SQLSetEnvAttr(handles->environment, SQL_ATTR_ODBC_VERSION, odbc::Value(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, handles->environment, &handles->connection);
    source = dsn;
    account = user;
    if (!odbc::Succeeded(password.isEmpty() ? ConnectByText() : ConnectBy(password))) {
        static_cast<void>(Fail(SQL_HANDLE_DBC, handles->connection));
        problem = RefusedConnectionText(dsn, problem);
        return false;
    }
    handles->connected = true;
    std::array<char, 64> name {};
    SQLSMALLINT length = 0;
    SQLGetInfo(handles->connection, SQL_DBMS_NAME, name.data(), name.size(), &length);
    const Dialect *const found = DialectFor(name.data());
    if (found == nullptr) {
        problem = Words::tr("The database engine \"%1\" is not supported.")
                      .arg(TextFromUtf8(name.data()));
        return false;
    }
    handles->dialect = found;
    SQLAllocHandle(SQL_HANDLE_STMT, handles->connection, &handles->statement);
    if (found->cancelsConnection) {
        SQLAllocHandle(SQL_HANDLE_STMT, handles->connection, &handles->canceller);
    }
    return true;
}

std::optional<int> ReportConnection::AskForNumber(const std::string &query)
{
    SQLINTEGER answer = 0;
    const bool isRead = Execute(query)
        && (odbc::Succeeded(odbc::FetchNumber(handles->statement, answer))
            || Fail(SQL_HANDLE_STMT, handles->statement));
    CloseCursor();
    return isRead ? std::optional(answer) : std::nullopt;
}

bool ReportConnection::KnowsSchema()
{
    const auto version = ReadSchemaVersion(
        *handles->dialect, [this](const std::string &query) { return AskForNumber(query); });
    schemaVersion = version.value_or(0);
    if (const auto refused = RefusedSchemaText(schemaVersion)) {
        problem = *refused;
        return false;
    }
    return version.has_value();
}

// The embedded engine would run a library's code in this very process.
bool ReportConnection::ForbidExtensions(const ExtensionBan &ban)
{
    if (handles->dialect != &kSqlite || ban.Enforce()) {
        return true;
    }
    problem = Words::tr("the loading of extensions cannot be turned off");
    return false;
}

bool ReportConnection::ForbidWriting()
{
    if (!Execute(ReadOnlyStatement(*handles->dialect))) {
        return false;
    }
    if (handles->dialect != &kSqlite) {
        SQLSetConnectAttr(handles->connection,
                          SQL_ATTR_TXN_ISOLATION,
                          odbc::Value(SQL_TXN_REPEATABLE_READ),
                          SQL_IS_UINTEGER);
    }
    if (!BeginReading()) {
        return false;
    }
    gathers = handles->dialect == &kMariadb;
    SQLSetStmtAttr(
        handles->statement, SQL_ATTR_ROW_ARRAY_SIZE, odbc::Value(kBlockRows), SQL_IS_UINTEGER);
    SQLSetStmtAttr(
        handles->statement, SQL_ATTR_ROWS_FETCHED_PTR, &handles->fetched, SQL_IS_POINTER);
    return true;
}

// One transaction for all statements. The embedded engine's driver reads row by row only while it
// does not know of one; else it holds the whole result in memory.
bool ReportConnection::BeginReading()
{
    if (handles->dialect == &kSqlite) {
        return Execute("BEGIN");
    }
    SQLSetConnectAttr(
        handles->connection, SQL_ATTR_AUTOCOMMIT, odbc::Value(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
    return true;
}

bool ReportConnection::Run(const QString &statement)
{
    return Try(statement, [this](const std::string &translated) { return Execute(translated); });
}

bool ReportConnection::RunForRows(const QString &statement, RowOrder order)
{
    return Try(statement, [&](const std::string &translated) {
        return gathers ? Gather(translated, order) : Execute(translated);
    });
}

bool ReportConnection::Try(const QString &statement,
                           const std::function<bool(const std::string &)> &run)
{
    // A driver that lost its server reads freed memory when it is asked again.
    if (lost) {
        return false;
    }
    CloseCursor();
    gathered.reset();
    if (!IsQuery(statement) || HoldsMoreThanOne(statement)) {
        problem = Words::tr("a report runs one query at a time, and nothing else");
        return false;
    }
    qCDebug(logStatement).noquote() << statement;
    const QByteArray bytes = statement.toUtf8();
    const std::string_view text(bytes.constData(), static_cast<size_t>(bytes.size()));
    if (run(Translate(*handles->dialect, text))) {
        return true;
    }
    // An engine may refuse everything else of a transaction in which a statement failed.
    EndTransaction();
    return false;
}

bool ReportConnection::Execute(const std::string &statement)
{
    if (cancelled) {
        problem = u"cancelled"_s;
        return false;
    }
    SQLFreeStmt(handles->statement, SQL_CLOSE);
    const SQLRETURN code =
        SQLExecDirect(handles->statement, odbc::Text(statement.c_str()), SQL_NTS);
    return odbc::Succeeded(code) || code == SQL_NO_DATA
        || Fail(SQL_HANDLE_STMT, handles->statement);
}

bool ReportConnection::Gather(const std::string &query, RowOrder order)
{
    if (!odbc::Succeeded(SQLPrepare(handles->statement, odbc::Text(query.c_str()), SQL_NTS))) {
        return Fail(SQL_HANDLE_STMT, handles->statement);
    }
    const std::vector<ColumnDescription> columns = Columns();
    std::vector<qint16> types;
    gatheredNames.clear();
    for (const auto &[name, type] : columns) {
        gatheredNames += name;
        types.push_back(type);
    }
    const GatheredRows rows(types, order);
    if (!MakeTable(rows)) {
        if (lost || cancelled) {
            return false;
        }
        qCWarning(logDb).noquote() << "a report's rows are all held in memory:" << problem;
        gathers = false;
        return Execute(query);
    }
    // At its usual isolation level the engine would lock each row that it copies.
    if (!Execute("SET TRANSACTION ISOLATION LEVEL READ COMMITTED")
        || !Execute(rows.FillStatement(query))) {
        return false;
    }
    EndTransaction();
    gathered = rows;
    return Execute(GatheredRows::OpenStatement()) && ReadGathered();
}

// The one transaction that may write.
bool ReportConnection::MakeTable(const GatheredRows &rows)
{
    EndTransaction();
    const bool made = Execute("SET TRANSACTION READ WRITE") && Execute(rows.MakeStatement());
    EndTransaction();
    return made;
}

bool ReportConnection::ReadGathered()
{
    return Execute(gathered->PartStatement(true));
}

std::vector<ReportConnection::ColumnDescription> ReportConnection::Columns() const
{
    SQLSMALLINT count = 0;
    SQLNumResultCols(handles->statement, &count);
    std::vector<ColumnDescription> columns;
    for (SQLSMALLINT column = 1; column <= count; ++column) {
        std::array<char, 256> name {};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = SQL_VARCHAR;
        SQLDescribeCol(handles->statement,
                       static_cast<SQLUSMALLINT>(column),
                       reinterpret_cast<SQLCHAR *>(name.data()),
                       name.size(),
                       &length,
                       &type,
                       nullptr,
                       nullptr,
                       nullptr);
        columns.push_back({TextFromUtf8(name.data()), type});
    }
    return columns;
}

QStringList ReportConnection::ColumnNames() const
{
    if (gathered) {
        return gatheredNames;
    }
    QStringList names;
    for (const auto &[name, type] : Columns()) {
        names += name;
    }
    return names;
}

void ReportConnection::Choose(const std::vector<ReadColumn> &columns)
{
    SQLFreeStmt(handles->statement, SQL_UNBIND);
    block.clear();
    block.reserve(columns.size());
    for (const auto &[position, as] : columns) {
        Column &column = block.emplace_back(as, *handles->dialect);
        SQLBindCol(handles->statement,
                   static_cast<SQLUSMALLINT>(position),
                   column.hostType,
                   column.bytes.data(),
                   column.width,
                   column.indicators.data());
    }
}

int ReportConnection::FetchBlock()
{
    handles->fetched = 0;
    SQLRETURN code = SQLFetch(handles->statement);
    if (code == SQL_NO_DATA && gathered) {
        if (!Execute(gathered->PartStatement(false))) {
            return -1;
        }
        code = SQLFetch(handles->statement);
    }
    if (cancelled) {
        problem = u"cancelled"_s;
        return -1;
    }
    if (code == SQL_NO_DATA) {
        CloseCursor();
        return 0;
    }
    if (!odbc::Succeeded(code)) {
        std::ignore = Fail(SQL_HANDLE_STMT, handles->statement);
        return -1;
    }
    return static_cast<int>(handles->fetched);
}

bool ReportConnection::IsNull(int row, int column) const
{
    return block[static_cast<size_t>(column)].indicators[static_cast<size_t>(row)] == SQL_NULL_DATA;
}

qint64 ReportConnection::Integer(int row, int column) const
{
    qint64 value = 0;
    std::memcpy(&value, block[static_cast<size_t>(column)].At(row), sizeof value);
    return value;
}

double ReportConnection::Amount(int row, int column) const
{
    const Column &amounts = block[static_cast<size_t>(column)];
    if (amounts.hostType == SQL_C_CHAR) {
        return AmountFrom(std::string_view(amounts.At(row)));
    }
    double value = 0;
    std::memcpy(&value, amounts.At(row), sizeof value);
    return value;
}

std::string_view ReportConnection::Text(int row, int column) const
{
    const Column &texts = block[static_cast<size_t>(column)];
    const SQLLEN length = texts.indicators[static_cast<size_t>(row)];
    const char *start = texts.At(row);
    if (length < 0 || length >= kTextBytes) {
        return {start, strnlen(start, kTextBytes - 1)};
    }
    return {start, static_cast<size_t>(length)};
}

void ReportConnection::Cancel()
{
    cancelled = true;
    const std::lock_guard lock(guard);
    if (!asking.joinable()) {
        asking = std::jthread([this](const std::stop_token &end) { AskToStop(end); });
    }
}

// Again and again: a statement that was just about to begin has not heard of it.
void ReportConnection::AskToStop(const std::stop_token &end)
{
    constexpr std::chrono::milliseconds kAskAgain {50};
    std::mutex unshared;
    std::unique_lock lock(unshared);
    std::condition_variable_any ended;
    while (!end.stop_requested()) {
        SQLCancel(handles->canceller != SQL_NULL_HANDLE ? handles->canceller : handles->statement);
        ended.wait_for(lock, end, kAskAgain, [] { return false; });
    }
}

bool ReportConnection::Fail(qint16 handleType, void *handle)
{
    const odbc::Diagnostic failed = odbc::FirstDiagnostic(handleType, handle);
    problem = failed.text.isEmpty() ? Words::tr("the database gave no reason")
                                    : WithLackedRight(*handles->dialect, failed, account, source);
    lost = lost
        || KindOf(*handles->dialect, failed.sqlState.toStdString(), failed.native)
            == Failure::Kind::ConnectionLost;
    return false;
}

void ReportConnection::EndTransaction()
{
    if (!lost) {
        SQLEndTran(SQL_HANDLE_DBC, handles->connection, SQL_ROLLBACK);
    }
}

void ReportConnection::CloseCursor()
{
    SQLFreeStmt(handles->statement, SQL_CLOSE);
    SQLFreeStmt(handles->statement, SQL_UNBIND);
}
