// A column's comparison with many numbers, as the filters of reports write it. An engine takes each part
// of it for an expression inside another, of which it bears a thousand.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

// (column = 1 OR column = 2 OR ...), with any one comparison and either joint.
struct NumberChain
{
    std::string_view column; // as it is written, perhaps with its table
    std::string_view comparison;
    bool isAnd = false; // of one number alone it is not known
    std::vector<std::string_view> numbers;
    size_t end = 0; // behind the closing parenthesis
};

// The one whose parenthesis opens at `opening`; nothing when no such chain begins there.
[[nodiscard]] std::optional<NumberChain> NumberChainAt(std::string_view statement, size_t opening);
