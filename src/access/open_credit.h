// Whether a pre-paid account has anything left to use.
#pragma once

#include "access/owner.h"

// True when one of the owner's open pre-paid credits is not used up or has no bound.
[[nodiscard]] bool HasCreditLeft(const Owner &owner);
