// How work on a whole database tells what it does, and why it could not: in English, for whoever runs it.
#pragma once

#include <QString>

#include <functional>
#include <tl/expected.hpp>

// Hears of each step.
using Tell = std::function<void(const QString &)>;

// The value, or why there is none.
template <typename Value>
using Told = tl::expected<Value, QString>;
