// What each text value of the settings may hold, for whoever reads and writes them by name.
#pragma once

#include "config/config_values.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

enum class ValueKind {
    Text, // from `least` to `most` bytes
    Number, // whole, from `least` to `most`
    Amount, // with decimals, from `least` to `most`
    Flag, // "1" or "0"
    Word, // one of `words`; an empty text stands for none of them
};

struct ValueRule
{
    TextValue value;
    ValueKind kind;
    double least;
    double most;
    const char *words; // of a Word, with blanks between
    const char *meaning; // a few words, with the unit
    bool isSecret = false; // not to be shown among others
    bool isPartOfMore = false; // means nothing without other values, with which it is written
};

// Every text value there is, each once.
[[nodiscard]] const QList<ValueRule> &AllValueRules();

// "timer" of the base key, else "Price/trafprice": unlike for every value.
[[nodiscard]] QString FullNameOf(const TextValue &value);

// By the full name, or by the value's own name where that is one value's only; in any letter case. Null
// when there is none, or several.
[[nodiscard]] const ValueRule *FindValueRule(const QString &name);

// Why the value may not hold the text, in a sentence that begins with "is to be"; nothing when it may.
[[nodiscard]] std::optional<QString> CheckValue(const ValueRule &rule, const QString &text);
