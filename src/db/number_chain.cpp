#include "db/number_chain.h"

#include <algorithm>

namespace {

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsLetter(char c)
{
    return (Lower(c) >= 'a' && Lower(c) <= 'z') || c == '_';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsColumnCharacter(char c)
{
    return IsLetter(c) || IsDigit(c) || c == '.';
}

bool IsBlank(char c)
{
    return c == ' ';
}

bool IsComparison(char c)
{
    return c == '<' || c == '>' || c == '=';
}

class ChainReader
{
public:
    ChainReader(std::string_view statement, size_t opening) : in(statement), at(opening + 1) { }

    std::optional<NumberChain> Read()
    {
        NumberChain chain;
        for (;;) {
            Take(IsBlank);
            const auto column = Take(IsColumnCharacter);
            Take(IsBlank);
            const auto comparison = Take(IsComparison);
            Take(IsBlank);
            const auto number = Take(IsDigit);
            if (chain.numbers.empty()) {
                chain.column = column;
                chain.comparison = comparison;
            }
            if (column.empty() || IsDigit(column.front()) || comparison.empty() || number.empty()
                || column != chain.column || comparison != chain.comparison) {
                return std::nullopt;
            }
            chain.numbers.push_back(number);
            Take(IsBlank);
            if (at < in.size() && in[at] == ')') {
                chain.end = at + 1;
                return chain;
            }
            const auto joint = Take(IsLetter);
            const bool isAnd = IsSame(joint, "and");
            if ((!isAnd && !IsSame(joint, "or"))
                || (chain.numbers.size() > 1 && isAnd != chain.isAnd)) {
                return std::nullopt;
            }
            chain.isAnd = isAnd;
        }
    }

private:
    std::string_view Take(bool (*belongs)(char))
    {
        const size_t start = at;
        while (at < in.size() && belongs(in[at])) {
            ++at;
        }
        return in.substr(start, at - start);
    }

    static bool IsSame(std::string_view word, std::string_view lower)
    {
        return std::equal(word.begin(), word.end(), lower.begin(), lower.end(), [](char a, char b) {
            return Lower(a) == b;
        });
    }

    std::string_view in;
    size_t at;
};

} // namespace

std::optional<NumberChain> NumberChainAt(std::string_view statement, size_t opening)
{
    return ChainReader(statement, opening).Read();
}
