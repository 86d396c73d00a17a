#include "sheet/sent_statements.h"

#include <sql.h>
#include <sqlext.h>

#include <cstring>
#include <dlfcn.h>
#include <utility>

namespace {

struct BoundPlace
{
    BareValue value; // without its bytes, which are there when the statement is executed
    const void *place;
};

bool listening = false;
std::vector<BoundPlace> bound;
std::vector<BareStatement> sent;

size_t BytesOf(const BoundPlace &place)
{
    switch (place.value.hostType) {
    case SQL_C_SLONG:
        return sizeof(SQLINTEGER);
    case SQL_C_DOUBLE:
        return sizeof(double);
    case SQL_C_TYPE_DATE:
        return sizeof(SQL_DATE_STRUCT);
    default:
        return std::strlen(static_cast<const char *>(place.place)) + 1;
    }
}

void Keep(const SQLCHAR *text)
{
    BareStatement &statement = sent.emplace_back();
    statement.text = reinterpret_cast<const char *>(text);
    for (const BoundPlace &place : std::exchange(bound, {})) {
        statement.values.push_back(place.value);
        statement.values.back().bytes.assign(static_cast<const char *>(place.place),
                                             BytesOf(place));
    }
}

template <typename Function>
Function *DriverManagers(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// NOLINTBEGIN(readability-identifier-naming,readability-function-size): the interface's own names and parameters
SQLRETURN SQL_API SQLBindParameter(SQLHSTMT statement,
                                   SQLUSMALLINT number,
                                   SQLSMALLINT direction,
                                   SQLSMALLINT hostType,
                                   SQLSMALLINT sqlType,
                                   SQLULEN size,
                                   SQLSMALLINT digits,
                                   SQLPOINTER value,
                                   SQLLEN bytes,
                                   SQLLEN *indicator)
{
    static auto *const function = DriverManagers<decltype(SQLBindParameter)>("SQLBindParameter");
    if (listening) {
        bound.push_back({{.hostType = hostType, .sqlType = sqlType, .size = size}, value});
    }
    return function(
        statement, number, direction, hostType, sqlType, size, digits, value, bytes, indicator);
}

SQLRETURN SQL_API SQLExecDirect(SQLHSTMT statement, SQLCHAR *text, SQLINTEGER length)
{
    static auto *const function = DriverManagers<decltype(SQLExecDirect)>("SQLExecDirect");
    if (listening) {
        Keep(text);
    }
    return function(statement, text, length);
}
// NOLINTEND(readability-identifier-naming,readability-function-size)

std::vector<BareStatement> SentBy(const std::function<void()> &work)
{
    listening = true;
    work();
    listening = false;
    return std::exchange(sent, {});
}
