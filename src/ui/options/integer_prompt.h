// The prompts for a field that must hold a whole number.
#pragma once

#include "base/prompt.h"

class WholeNumberField;

// True when the field holds a number; otherwise says so and puts the focus there.
[[nodiscard]] bool HoldsInteger(Prompt &prompt, WholeNumberField &field);

// As above for a number from `least` to `most`.
[[nodiscard]] bool
HoldsInteger(Prompt &prompt, WholeNumberField &field, quint32 least, quint32 most);
