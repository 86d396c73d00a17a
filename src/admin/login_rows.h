// Single reads of the table Logins, for whoever loads and saves it.
#pragma once

#include "actions/action_run.h"
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

[[nodiscard]] bool HasSameLimit(const Login &one, const Login &other);

// What the columns LimitPC and LimitPCMode say.
[[nodiscard]] quint32 LimitOn(const Login &login);
[[nodiscard]] quint32 LimitMode(const Login &login);

// Write a login, on the way with a look whether a statement whose end nobody heard of was kept. False when
// it was not written.
bool InsertLogin(ActionRun &run, const Login &login);
bool UpdateLogin(ActionRun &run, const Login &login);
