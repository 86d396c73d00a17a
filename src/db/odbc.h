// Small words of the ODBC interface, for the sources of this folder.
#pragma once

#include <QString>

#include <sql.h>
#include <sqlext.h>

namespace odbc {

[[nodiscard]] inline bool Succeeded(SQLRETURN code)
{
    return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

// The interface takes texts that it only reads without const.
[[nodiscard]] inline SQLCHAR *Text(const char *text)
{
    return reinterpret_cast<SQLCHAR *>(const_cast<char *>(text)); // NOLINT
}

// The value of an attribute, which travels as a pointer.
template <typename Number>
[[nodiscard]] SQLPOINTER Value(Number number)
{
    return reinterpret_cast<SQLPOINTER>(static_cast<quintptr>(number)); // NOLINT
}

// What a driver said of a failed call.
struct Diagnostic
{
    QString sqlState;
    int native = 0;
    QString text;
};

[[nodiscard]] Diagnostic FirstDiagnostic(SQLSMALLINT handleType, SQLHANDLE handle);

// The database that a connection is to, as its driver names it; for the embedded engine its file.
[[nodiscard]] QString DatabaseOf(SQLHANDLE connection);

// Fetches the one number that a query just run gives. The cursor stays open.
[[nodiscard]] SQLRETURN FetchNumber(SQLHSTMT statement, SQLINTEGER &number);

} // namespace odbc
