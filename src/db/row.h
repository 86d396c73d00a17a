// The row that a query hands to whoever reads it: texts as the engine writes them, read as what they
// are meant to be. Columns are counted from 1, at most 15.
#pragma once

#include <QString>

struct QueryResult;

// Lives while the row is being read, and no longer.
class Row
{
public:
    explicit Row(const QueryResult &current) : buffer(current) { }
    Row(const Row &) = delete;
    Row &operator=(const Row &) = delete;
    ~Row() = default;

    [[nodiscard]] QString Text(int column) const; // at most 254 bytes of it; empty for NULL
    [[nodiscard]] quint32 Integer(int column) const; // 0 for what is no number
    [[nodiscard]] double Amount(int column) const; // 0 for what is no number
    [[nodiscard]] bool Flag(int column) const; // false only for "0"
    [[nodiscard]] bool IsEmpty(int column) const; // also NULL

    // An identity (db/ids.h).
    template <typename IdType>
    [[nodiscard]] IdType Id(int column) const
    {
        return IdType {Integer(column)};
    }

    // A coded value (db/value_codes.h); a code of no meaning stays what it is.
    template <typename CodeType>
    [[nodiscard]] CodeType Code(int column) const
    {
        return static_cast<CodeType>(Integer(column));
    }

private:
    const QueryResult &buffer;
};
