// The queries that the tests of reading send, and two users to be found by them.
#pragma once

#include "db/row.h"
#include "db/session.h"

#include <QString>

constexpr char kNames[] = "SELECT username FROM users ORDER BY username";
constexpr char kNameOf[] = "SELECT username FROM users WHERE user_id = (?)";

[[nodiscard]] inline QString Name(const Row &row)
{
    return row.Text(1);
}

inline void AddAnnaAndBen()
{
    Execute("INSERT INTO users (user_id, username) VALUES (1, 'anna')");
    Execute("INSERT INTO users (user_id, username) VALUES (2, 'ben')");
}
