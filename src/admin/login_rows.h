// Single reads of the table Logins, for whoever loads and saves it.
#pragma once

#include "admin/login_table.h"
#include "db/failure.h"

#include <optional>
#include <vector>

// Without their users' names; the first `most` of them.
[[nodiscard]] Result<std::vector<Login>> ReadStoredLogins(quint32 most);

// Nothing when there is no such login.
[[nodiscard]] Result<std::optional<Login>> ReadStoredLogin(const QString &name);
[[nodiscard]] Result<std::optional<QString>> ReadDigest(const QString &name);

// The login with its user's name and group; a user who is gone has neither.
[[nodiscard]] Result<Login> WithUser(Login login);

// What the columns LimitPC and LimitPCMode say.
[[nodiscard]] quint32 LimitOn(const Login &login);
[[nodiscard]] quint32 LimitMode(const Login &login);
