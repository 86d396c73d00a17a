#include "support/bare_session.h"

#include "support/must.h"

#include <sql.h>
#include <sqlext.h>

#include <cstring>

BareValue BareInteger(int value)
{
    BareValue integer {.hostType = SQL_C_SLONG, .sqlType = SQL_INTEGER};
    integer.bytes.resize(sizeof value);
    std::memcpy(integer.bytes.data(), &value, sizeof value);
    return integer;
}

BareSession::BareSession(const QString &dsn)
{
    Must(connection.Open(dsn), connection);
}

void BareSession::Run(BareStatement &statement)
{
    SQLLEN endsAtNull = SQL_NTS;
    SQLUSMALLINT marker = 0;
    for (BareValue &value : statement.values) {
        SQLBindParameter(connection.Handle(),
                         ++marker,
                         SQL_PARAM_INPUT,
                         value.hostType,
                         value.sqlType,
                         value.size,
                         0,
                         value.bytes.data(),
                         0,
                         &endsAtNull);
    }
    const SQLRETURN code = SQLExecDirect(
        connection.Handle(), reinterpret_cast<SQLCHAR *>(statement.text.data()), SQL_NTS);
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) {
        Fail(QString::fromStdString("Failed: " + statement.text));
    }
    if (statement.columns < 0) {
        SQLSMALLINT count = 0;
        SQLNumResultCols(connection.Handle(), &count);
        statement.columns = count;
    }
    if (statement.columns > 0) {
        FetchAll(statement.columns);
    }
    if (marker > 0) {
        SQLFreeStmt(connection.Handle(), SQL_RESET_PARAMS);
    }
}

void BareSession::FetchAll(int count)
{
    Q_ASSERT(count <= kColumns);
    for (int column = 0; column < count; ++column) {
        SQLBindCol(connection.Handle(),
                   static_cast<SQLUSMALLINT>(column + 1),
                   SQL_C_CHAR,
                   columns[column],
                   kColumnBytes,
                   &indicators[column]);
    }
    while (SQL_SUCCEEDED(SQLFetch(connection.Handle()))) { }
    SQLCloseCursor(connection.Handle());
    SQLFreeStmt(connection.Handle(), SQL_UNBIND);
}
