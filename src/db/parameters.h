// The values of the next statement's markers. Each thread has its own, as it has its own session.
#pragma once

#include "base/day.h"
#include "db/ids.h"
#include "db/quantities.h"
#include "db/staged_rows.h"

#include <QString>

#include <type_traits>
#include <variant>
#include <vector>

// Binds parameter `number`, counted from 1, for the next statement only. The value is copied.
void BindValue(int number, quint32 value);
void BindValue(int number, double amount); // amounts of money, megabytes and hours
void BindValue(int number, const QString &text); // cut at 254 bytes of UTF-8
void BindValue(int number, Day day); // an impossible day becomes the next that exists
void BindValue(int number, const StagedRows &rows); // at most one of a statement's markers

template <typename Tag>
void BindValue(int number, Id<Tag> id)
{
    BindValue(number, id.value);
}

template <typename Tag, typename Number>
void BindValue(int number, Quantity<Tag, Number> quantity)
{
    BindValue(number, quantity.value);
}

// Codes as those of db/value_codes.h.
template <typename Enum>
void BindValue(int number,
               Enum code) requires(std::is_same_v<std::underlying_type_t<Enum>, quint32>)
{
    BindValue(number, static_cast<quint32>(code));
}

// For a statement that is put together as it is needed.
using ValueList = std::vector<std::variant<quint32, double, QString, Day, StagedRows>>;

// Binds `values` in order.
void BindValues(const ValueList &values);

template <typename... Values>
void BindValues(const Values &...values)
{
    [[maybe_unused]] int number = 0;
    (BindValue(++number, values), ...);
}
