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

} // namespace odbc
