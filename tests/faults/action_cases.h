// Every action that there is, on rows that it has much to do with.
#pragma once

#include "actions/action.h"

#include <functional>
#include <vector>

struct ActionCase
{
    const char *name;
    ActionId id;
    std::function<void()> prepare; // rows besides those of PrepareRows
    std::function<Action()> action; // made on the rows
};

// At least one for each action. Every question is to be answered Yes.
[[nodiscard]] const std::vector<ActionCase> &ActionCases();

// Users 1 and 2 of group 90 and user 9 of "Everybody", with all that may be counted for them.
void PrepareRows();
