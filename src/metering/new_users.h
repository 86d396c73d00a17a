#pragma once
#include "db/failure.h"
#include <QString>
#include <vector>
struct FoundWorkstation { QString ip; QString mac; QString name; };
struct NewUserRules { int x=0; };
struct FoundUsers { int made = 0; };
[[nodiscard]] Result<FoundUsers> MakeNewUsers(const std::vector<FoundWorkstation> &, const NewUserRules &);
