// "user list" and "user show".
#pragma once

#include "cli/command.h"

[[nodiscard]] Or<void> ListUsers(Work &work, const Given &given);
[[nodiscard]] Or<void> ShowUser(Work &work, const Given &given);
