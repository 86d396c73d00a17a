// "user list".
#pragma once

#include "cli/command.h"

[[nodiscard]] Or<void> ListUsers(Work &work, const Given &given);
