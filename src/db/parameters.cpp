#include "db/parameters.h"

#include "base/text.h"
#include "db/bound_parameters.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

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

// They stand still: a statement allocates nothing here.
constinit thread_local Parameter parameters[kMaxParameters] = {};
constinit thread_local ParameterKinds parameterKinds {};
constinit thread_local int parameterCount = 0;
thread_local QByteArray stagedRows; // too long for a place among them

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

void BindInOdbc(SQLHSTMT statement,
                SQLUSMALLINT number,
                ParameterKind kind,
                SQLSMALLINT amountType,
                Parameter &parameter)
{
    const auto bind = [&](SQLSMALLINT hostType, SQLSMALLINT sqlType, SQLULEN size, void *value) {
        SQLBindParameter(statement,
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
        bind(SQL_C_DOUBLE, amountType, 0, &parameter.amount);
        break;
    case ParameterKind::Text:
        bind(SQL_C_CHAR, SQL_CHAR, 255, parameter.text);
        break;
    case ParameterKind::Day:
        bind(SQL_C_TYPE_DATE, SQL_TYPE_DATE, 255, &parameter.day);
        break;
    case ParameterKind::Rows:
        bind(SQL_C_CHAR,
             SQL_LONGVARCHAR,
             static_cast<SQLULEN>(stagedRows.size()),
             stagedRows.data());
        break;
    }
}

} // namespace

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

void BindValue(int number, const StagedRows &rows)
{
    NextParameter(number, ParameterKind::Rows);
    stagedRows = rows.Text();
}

void BindValues(const ValueList &values)
{
    int number = 0;
    for (const auto &value : values) {
        std::visit([&number](const auto &bound) { BindValue(++number, bound); }, value);
    }
}

namespace bound_parameters {

const ParameterKinds &Kinds()
{
    return parameterKinds;
}

void Change(const ParameterChanges &changes)
{
    for (int index = 0; index < parameterCount; ++index) {
        Parameter &parameter = parameters[index];
        const auto change = changes[static_cast<size_t>(index)];
        if (change == ParameterChange::NextDay) {
            ToNextDay(parameter.day);
        } else if (change == ParameterChange::DayToStamp) {
            DayTextToStamp(parameter.text);
        }
    }
}

void HandOver(void *statement, const Dialect &dialect)
{
    for (int index = 0; index < parameterCount; ++index) {
        BindInOdbc(statement,
                   static_cast<SQLUSMALLINT>(index + 1),
                   parameterKinds[static_cast<size_t>(index)],
                   dialect.amountType,
                   parameters[index]);
    }
}

void Forget()
{
    parameterCount = 0;
}

} // namespace bound_parameters
