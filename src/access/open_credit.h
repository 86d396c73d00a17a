// Whether a pre-paid account has anything left to use.
#pragma once

#include <QtGlobal>

// Runs `sqlText`, which reads moneydata, moneyusage, data and usage of an owner's open credits.
// True when one of them is not used up or has no bound.
[[nodiscard]] bool HasCreditLeft(const char *sqlText, quint32 ownerId);
