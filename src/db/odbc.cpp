#include "db/odbc.h"

#include "base/text.h"

#include <array>

namespace odbc {

Diagnostic FirstDiagnostic(SQLSMALLINT handleType, SQLHANDLE handle)
{
    std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state {};
    std::array<SQLCHAR, SQL_MAX_MESSAGE_LENGTH> text {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(handleType, handle, 1, state.data(), &native, text.data(), text.size(), &length);
    return {TextFromUtf8(reinterpret_cast<const char *>(state.data())),
            native,
            TextFromUtf8(reinterpret_cast<const char *>(text.data()))};
}

QString DatabaseOf(SQLHANDLE connection)
{
    std::array<char, 1024> name {};
    SQLSMALLINT length = 0;
    SQLGetInfo(connection, SQL_DATABASE_NAME, name.data(), name.size(), &length);
    return TextFromUtf8(name.data());
}

SQLRETURN FetchNumber(SQLHSTMT statement, SQLINTEGER &number)
{
    SQLLEN indicator = 0;
    SQLRETURN code = SQLFetch(statement);
    if (Succeeded(code)) {
        code = SQLGetData(statement, 1, SQL_C_SLONG, &number, sizeof number, &indicator);
    }
    if (Succeeded(code)) {
        SQLFetch(
            statement); // the embedded engine's driver holds its lock until it has seen the end
    }
    return code;
}

} // namespace odbc
