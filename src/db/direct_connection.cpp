#include "db/direct_connection.h"

#include "base/text.h"
#include "db/account.h"
#include "db/data_source.h"
#include "db/odbc.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(DirectConnection)
};

SQLLEN endsWithNul = SQL_NTS;

} // namespace

DirectConnection::~DirectConnection()
{
    Close();
}

bool DirectConnection::Open(const QString &dsn, AbsentFile absent)
{
    Close();
    missingFile.reset();
    if (!IsDataSourceName(dsn)) {
        error = Words::tr("There is no data source of this name.");
        return false;
    }
    auto *const version = odbc::Value(SQL_OV_ODBC3);
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, version, 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
    source = dsn;
    account = AccountOf(dsn);
    const QByteArray text = OpeningText(dsn, account, absent);
    const SQLRETURN code = SQLDriverConnect(connection,
                                            nullptr,
                                            odbc::Text(text.constData()),
                                            SQL_NTS,
                                            nullptr,
                                            0,
                                            nullptr,
                                            SQL_DRIVER_NOPROMPT);
    if (!Note(code, SQL_HANDLE_DBC, connection)) {
        missingFile = AbsentFileOf(dsn, error);
        error = RefusedConnectionText(dsn, error);
        SQLFreeHandle(SQL_HANDLE_DBC, std::exchange(connection, nullptr));
        Close();
        return false;
    }
    char name[64] = "";
    SQLSMALLINT length = 0;
    SQLGetInfo(connection, SQL_DBMS_NAME, name, sizeof name, &length);
    const Dialect *const found = DialectFor(name);
    if (found == nullptr) {
        error = Words::tr("The database engine \"%1\" is not supported.").arg(TextFromUtf8(name));
        Close();
        return false;
    }
    if (const auto problem = NoDatabaseText(*found, connection, dsn)) {
        error = *problem;
        Close();
        return false;
    }
    dialect = found;
    SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
    return statement != nullptr;
}

void DirectConnection::Close()
{
    if (statement != nullptr) {
        SQLFreeHandle(SQL_HANDLE_STMT, std::exchange(statement, nullptr));
    }
    if (connection != nullptr) {
        SQLEndTran(SQL_HANDLE_DBC, connection, SQL_ROLLBACK);
        SQLDisconnect(connection);
        SQLFreeHandle(SQL_HANDLE_DBC, std::exchange(connection, nullptr));
    }
    if (environment != nullptr) {
        SQLFreeHandle(SQL_HANDLE_ENV, std::exchange(environment, nullptr));
    }
}

bool DirectConnection::Run(const QString &sqlText, const SqlValues &values)
{
    const QByteArray text = sqlText.toUtf8();
    Bind(values);
    const SQLRETURN code = SQLExecDirect(statement, odbc::Text(text.constData()), SQL_NTS);
    const bool done = Note(code, SQL_HANDLE_STMT, statement);
    SQLFreeStmt(statement, SQL_CLOSE);
    SQLFreeStmt(statement, SQL_RESET_PARAMS);
    return done;
}

std::optional<QList<QStringList>> DirectConnection::Rows(const QString &sqlText)
{
    const QByteArray text = sqlText.toUtf8();
    if (!Note(SQLExecDirect(statement, odbc::Text(text.constData()), SQL_NTS),
              SQL_HANDLE_STMT,
              statement)) {
        return std::nullopt;
    }
    SQLSMALLINT columns = 0;
    bool complete = Note(SQLNumResultCols(statement, &columns), SQL_HANDLE_STMT, statement);
    QList<QStringList> rows;
    SQLRETURN code = columns == 0 ? SQL_NO_DATA : SQLFetch(statement);
    for (; complete && odbc::Succeeded(code); code = SQLFetch(statement)) {
        QStringList &row = rows.emplace_back();
        for (int column = 1; complete && column <= columns; ++column) {
            complete = TakeValue(column, row);
        }
    }
    complete = complete && Note(code, SQL_HANDLE_STMT, statement);
    SQLFreeStmt(statement, SQL_CLOSE);
    return complete ? std::optional(rows) : std::nullopt;
}

bool DirectConnection::Note(short code)
{
    return Note(code, SQL_HANDLE_STMT, statement);
}

bool DirectConnection::Start(const QString &sqlText, const SqlValues &values)
{
    const QByteArray text = sqlText.toUtf8();
    Bind(values);
    return Note(SQLExecDirect(statement, odbc::Text(text.constData()), SQL_NTS));
}

void DirectConnection::End()
{
    SQLFreeStmt(statement, SQL_CLOSE);
    SQLFreeStmt(statement, SQL_UNBIND);
    SQLFreeStmt(statement, SQL_RESET_PARAMS);
    auto *const single = odbc::Value(1);
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, single, SQL_IS_UINTEGER);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, SQL_IS_POINTER);
    SQLSetStmtAttr(statement, SQL_ATTR_PARAMSET_SIZE, single, SQL_IS_UINTEGER);
}

bool DirectConnection::Begin()
{
    auto *const off = odbc::Value(SQL_AUTOCOMMIT_OFF);
    return Note(
        SQLSetConnectAttr(connection, SQL_ATTR_AUTOCOMMIT, off, 0), SQL_HANDLE_DBC, connection);
}

bool DirectConnection::Commit()
{
    const bool kept =
        Note(SQLEndTran(SQL_HANDLE_DBC, connection, SQL_COMMIT), SQL_HANDLE_DBC, connection);
    auto *const on = odbc::Value(SQL_AUTOCOMMIT_ON);
    SQLSetConnectAttr(connection, SQL_ATTR_AUTOCOMMIT, on, 0);
    return kept;
}

bool DirectConnection::Prepare(const QString &sqlText)
{
    const QByteArray text = sqlText.toUtf8();
    SQLFreeStmt(statement, SQL_RESET_PARAMS);
    return Note(
        SQLPrepare(statement, odbc::Text(text.constData()), SQL_NTS), SQL_HANDLE_STMT, statement);
}

bool DirectConnection::RunPrepared(const SqlValues &values)
{
    Bind(values);
    const bool done = Note(SQLExecute(statement), SQL_HANDLE_STMT, statement);
    SQLFreeStmt(statement, SQL_RESET_PARAMS); // bound values too many fail the next statement
    return done;
}

// The values stay where they are until the statement has run.
void DirectConnection::Bind(const SqlValues &values)
{
    SQLUSMALLINT number = 0;
    const auto bind =
        [&](SQLSMALLINT hostType, SQLSMALLINT sqlType, SQLULEN size, const void *value) {
            SQLBindParameter(statement,
                             ++number,
                             SQL_PARAM_INPUT,
                             hostType,
                             sqlType,
                             size,
                             0,
                             const_cast<SQLPOINTER>(value), // NOLINT: only read
                             0,
                             &endsWithNul);
        };
    for (const SqlValue &value : values) {
        if (const auto *const integer = std::get_if<qint32>(&value)) {
            bind(SQL_C_SLONG, SQL_INTEGER, 0, integer);
        } else if (const auto *const amount = std::get_if<double>(&value)) {
            bind(SQL_C_DOUBLE, SQL_DOUBLE, 0, amount);
        } else {
            bind(SQL_C_CHAR, SQL_VARCHAR, 255, std::get<QByteArray>(value).constData());
        }
    }
}

// True for a success; else keeps the driver's words.
bool DirectConnection::Note(short code, short handleType, void *handle)
{
    if (odbc::Succeeded(code) || code == SQL_NO_DATA) {
        return true;
    }
    error = WithLackedRight(*dialect, odbc::FirstDiagnostic(handleType, handle), account, source);
    return false;
}

bool DirectConnection::TakeValue(int column, QStringList &row)
{
    std::array<char, 4096> text {};
    SQLLEN indicator = 0;
    const SQLRETURN code =
        SQLGetData(statement,
                   static_cast<SQLUSMALLINT>(column),
                   SQL_C_CHAR,
                   text.data(),
                   text.size() - 1, // one of the drivers writes no NUL behind what it cuts
                   &indicator);
    row << (indicator == SQL_NULL_DATA ? QString() : TextFromUtf8(text.data()));
    return Note(code, SQL_HANDLE_STMT, statement);
}
