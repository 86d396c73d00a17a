#include "db/session.h"

#include "base/text.h"
#include "db/dialect.h"
#include "db/failure_log.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

DbSession dbSession;
QueryResult queryResult;

namespace {

static_assert(kQueryNoData == SQL_NO_DATA && kQuerySuccess == SQL_SUCCESS
              && kQuerySuccessWithInfo == SQL_SUCCESS_WITH_INFO);

struct Parameter
{
    union {
        SQLINTEGER integer; // the 32 bits of an unsigned number
        double amount;
        SQL_DATE_STRUCT day;
        char text[kMaxTextBytes + 1];
    };
    SQLLEN indicator;
};

// The statement in the engine's spelling, and the values bound to its markers. All of it stands
// still: a statement allocates nothing here.
const Dialect *dialect = &kSqlite;
std::string translated;
Parameter parameters[kMaxParameters];
ParameterKinds parameterKinds;
int parameterCount = 0;
SQLULEN rowLimit = 0;
SQLULEN fetchedRows = 0;
SQLLEN affectedRows = 0;

// ODBC's functions take texts that they only read without const.
SQLCHAR *OdbcText(const char *text)
{
    return reinterpret_cast<SQLCHAR *>(const_cast<char *>(text)); // NOLINT
}

bool Succeeded(SQLRETURN code)
{
    return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

void RecordFailure(SQLSMALLINT handleType, SQLHANDLE handle, const char *statement)
{
    SQLCHAR state[SQL_SQLSTATE_SIZE + 1] = {};
    SQLCHAR text[SQL_MAX_MESSAGE_LENGTH] = "The database session is not open.";
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(handleType, handle, 1, state, &native, text, sizeof text, &length);
    FailureLog::Instance().Add({QDateTime::currentDateTime(),
                                TextFromUtf8(statement),
                                TextFromUtf8(reinterpret_cast<const char *>(state)),
                                TextFromUtf8(reinterpret_cast<const char *>(text))});
}

Parameter &NextParameter(int number, ParameterKind kind)
{
    const auto index = static_cast<size_t>(number - 1);
    Q_ASSERT(number >= 1 && number <= kMaxParameters);
    parameterKinds[index] = kind;
    parameterCount = std::max(parameterCount, number);
    parameters[index].indicator = SQL_NTS;
    return parameters[index];
}

SQL_DATE_STRUCT OdbcDay(QDate date)
{
    return {static_cast<SQLSMALLINT>(date.year()),
            static_cast<SQLUSMALLINT>(date.month()),
            static_cast<SQLUSMALLINT>(date.day())};
}

void ToNextDay(SQL_DATE_STRUCT &day)
{
    day = OdbcDay(QDate(day.year, day.month, day.day).addDays(1));
}

// "30.02.2026 00:00:00" becomes "2026-03-01 00:00:00".
void DayTextToStamp(char *text)
{
    int day = 0;
    int month = 0;
    int year = 0;
    char clock[16] = "";
    if (std::sscanf(text, "%2d.%2d.%4d %15[0-9:]", &day, &month, &year, clock) < 3) {
        return;
    }
    const QDate date = ExistingDate({year, month, day});
    std::snprintf(
        text, kMaxTextBytes + 1, "%04d-%02d-%02d %s", date.year(), date.month(), date.day(), clock);
}

void BindInOdbc(SQLUSMALLINT number, ParameterKind kind, Parameter &parameter)
{
    const auto bind = [&](SQLSMALLINT hostType, SQLSMALLINT sqlType, SQLULEN size, void *value) {
        SQLBindParameter(dbSession.statement,
                         number,
                         SQL_PARAM_INPUT,
                         hostType,
                         sqlType,
                         size,
                         0,
                         value,
                         0,
                         &parameter.indicator);
    };
    switch (kind) {
    case ParameterKind::Integer:
        // As a signed number: the servers refuse what is beyond their columns, SQLite wraps it.
        bind(SQL_C_SLONG, SQL_INTEGER, 0, &parameter.integer);
        break;
    case ParameterKind::Amount:
        bind(SQL_C_DOUBLE, dialect->amountType, 0, &parameter.amount);
        break;
    case ParameterKind::Text:
        bind(SQL_C_CHAR, SQL_CHAR, 255, parameter.text);
        break;
    case ParameterKind::Day:
        bind(SQL_C_TYPE_DATE, SQL_TYPE_DATE, 255, &parameter.day);
        break;
    }
}

void BindParameters(const ParameterChanges &changes)
{
    for (int index = 0; index < parameterCount; ++index) {
        const auto place = static_cast<size_t>(index);
        Parameter &parameter = parameters[index];
        if (changes[place] == ParameterChange::NextDay) {
            ToNextDay(parameter.day);
        } else if (changes[place] == ParameterChange::DayToStamp) {
            DayTextToStamp(parameter.text);
        }
        BindInOdbc(static_cast<SQLUSMALLINT>(index + 1), parameterKinds[place], parameter);
    }
}

void SetRowLimit(SQLULEN rows)
{
    SQLSetStmtAttr(dbSession.statement,
                   SQL_ATTR_MAX_ROWS,
                   reinterpret_cast<SQLPOINTER>(rows), // NOLINT: the attribute's value travels so
                   SQL_IS_UINTEGER);
}

// Runs the statement and drops its bindings: a driver refuses one with fewer markers than are bound.
void ExecuteStatement(const char *sqlText)
{
    static ParameterChanges changes;
    qCDebug(logStatement).noquote() << sqlText;
    Translate(*dialect, sqlText, parameterKinds, translated, changes);
    BindParameters(changes);
    if (rowLimit != 0) {
        SetRowLimit(rowLimit);
    }
    const SQLRETURN code =
        SQLExecDirect(dbSession.statement, OdbcText(translated.c_str()), SQL_NTS);
    if (!Succeeded(code) && code != SQL_NO_DATA) {
        RecordFailure(SQL_HANDLE_STMT, dbSession.statement, sqlText);
    }
    affectedRows = 0;
    SQLRowCount(dbSession.statement, &affectedRows);
    SQLFreeStmt(dbSession.statement, SQL_RESET_PARAMS);
    parameterCount = 0;
}

void BindColumns(SQLSMALLINT count)
{
    for (SQLSMALLINT column = 0; column < count; ++column) {
        SQLBindCol(dbSession.statement,
                   static_cast<SQLUSMALLINT>(column + 1),
                   SQL_C_CHAR,
                   queryResult.columns[column],
                   QueryResult::kColumnBytes,
                   &queryResult.indicators[column]);
    }
}

SQLRETURN Fetch()
{
    // One of the drivers goes on to the last row whatever SQL_ATTR_MAX_ROWS says.
    if (rowLimit != 0 && fetchedRows++ == rowLimit) {
        return SQL_NO_DATA;
    }
    const SQLRETURN code = SQLFetch(dbSession.statement);
    if (!Succeeded(code) && code != SQL_NO_DATA) {
        RecordFailure(SQL_HANDLE_STMT, dbSession.statement, translated.c_str());
    }
    // Another writes no NUL behind a text that it cut.
    for (auto &column : queryResult.columns) {
        column[QueryResult::kColumnBytes - 1] = '\0';
    }
    return code;
}

void CloseCursor()
{
    SQLCloseCursor(dbSession.statement);
    SQLFreeStmt(dbSession.statement, SQL_UNBIND);
    if (rowLimit != 0) {
        LimitRows(0);
        SetRowLimit(0);
    }
}

// Opens the connection; on failure it is freed again.
bool Connect(const char *dsn)
{
    char user[] = "system";
    // A null password lets every driver take the data source's own.
    const SQLRETURN code = SQLConnect(
        dbSession.connection, OdbcText(dsn), SQL_NTS, OdbcText(user), SQL_NTS, nullptr, SQL_NTS);
    if (Succeeded(code)) {
        return true;
    }
    RecordFailure(SQL_HANDLE_DBC, dbSession.connection, "");
    SQLFreeHandle(SQL_HANDLE_DBC, dbSession.connection);
    dbSession.connection = nullptr;
    return false;
}

void ChooseDialect()
{
    char name[64] = "";
    SQLSMALLINT length = 0;
    SQLGetInfo(dbSession.connection, SQL_DBMS_NAME, name, sizeof name, &length);
    dialect = &DialectFor(name);
}

} // namespace

QString QueryResult::Text(int column) const
{
    return TextFromUtf8(Bytes(column));
}

quint32 QueryResult::Integer(int column) const
{
    return static_cast<quint32>(IntegerFrom(std::string_view(Bytes(column))));
}

double QueryResult::Amount(int column) const
{
    return AmountFrom(std::string_view(Bytes(column)));
}

bool QueryResult::Flag(int column) const
{
    return std::strcmp(Bytes(column), "0") != 0;
}

void QueryResult::Clear()
{
    for (int column = 0; column < kColumns; ++column) {
        columns[column][0] = '\0';
        indicators[column] = 0;
    }
}

int ConnectDatabase(const char *dsn)
{
    if (!Succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &dbSession.environment))) {
        return 0;
    }
    auto *const version = reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3); // NOLINT
    if (!Succeeded(SQLSetEnvAttr(dbSession.environment, SQL_ATTR_ODBC_VERSION, version, 0))) {
        return 0;
    }
    if (!Succeeded(SQLAllocHandle(SQL_HANDLE_DBC, dbSession.environment, &dbSession.connection))) {
        return 0;
    }
    if (!Connect(dsn)) {
        return 0;
    }
    ChooseDialect();
    translated.reserve(4096);
    // Exactly SQL_SUCCESS: unlike the steps before it, this one does not accept information.
    return SQLAllocHandle(SQL_HANDLE_STMT, dbSession.connection, &dbSession.statement)
            == SQL_SUCCESS
        ? 1
        : 0;
}

void DisconnectDatabase()
{
    if (dbSession.statement == nullptr) {
        return;
    }
    SQLFreeHandle(SQL_HANDLE_STMT, dbSession.statement);
    SQLDisconnect(dbSession.connection);
    SQLFreeHandle(SQL_HANDLE_DBC, dbSession.connection);
    SQLFreeHandle(SQL_HANDLE_ENV, dbSession.environment);
    dbSession = {};
}

bool IsDatabaseOpen()
{
    return dbSession.statement != nullptr;
}

void BindValue(int number, quint32 value)
{
    NextParameter(number, ParameterKind::Integer).integer = static_cast<SQLINTEGER>(value);
}

void BindValue(int number, double amount)
{
    NextParameter(number, ParameterKind::Amount).amount = amount;
}

void BindValue(int number, const QString &text)
{
    const QByteArray bytes = Utf8Cut(text, kMaxTextBytes);
    std::memcpy(NextParameter(number, ParameterKind::Text).text,
                bytes.constData(),
                static_cast<size_t>(bytes.size()) + 1);
}

void BindValue(int number, Day day)
{
    NextParameter(number, ParameterKind::Day).day = OdbcDay(ExistingDate(day));
}

int RunQuery(const char *sqlText, FetchMode mode)
{
    queryResult.Clear();
    ExecuteStatement(sqlText);
    SQLSMALLINT count = 0;
    SQLRETURN result = SQLNumResultCols(dbSession.statement, &count);
    if (count == 0) {
        CloseCursor();
        return kQueryNoData;
    }
    BindColumns(std::min<SQLSMALLINT>(count, QueryResult::kColumns));
    if (mode == FetchMode::Open) {
        return result;
    }
    if (mode == FetchMode::All) {
        do {
            result = Fetch();
        } while (Succeeded(result));
    } else if (mode == FetchMode::One) {
        result = Fetch();
    }
    CloseCursor();
    return result;
}

qint64 AffectedRows()
{
    return std::max<qint64>(affectedRows, 0);
}

void LimitRows(quint32 rows)
{
    rowLimit = rows;
    fetchedRows = 0;
}

RowCursor::~RowCursor()
{
    CloseCursor();
}

bool RowCursor::Next()
{
    queryResult.Clear();
    dbSession.lastFetchStatus = open ? Fetch() : static_cast<qint16>(kQueryNoData);
    return Succeeded(dbSession.lastFetchStatus);
}
