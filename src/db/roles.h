// What each program's account may do at a database server, and the statements that give it these rights.
#pragma once

#include <QString>

#include <optional>

class DirectConnection;
struct Dialect;

// Where the accounts are to be made.
struct RolesPlace
{
    const Dialect &dialect; // of a server
    QString database = QStringLiteral("bill");
    QString schema =
        QStringLiteral("public"); // that the tables are in, where the engine has schemas
    QString prefix = QStringLiteral("tollbrook"); // of the accounts' names, as in tollbrook_console
};

// Whether it can begin the names of accounts: small letters, digits and underscores, not too long.
[[nodiscard]] bool IsRolesPrefix(const QString &prefix);

// That of the connection's database; nothing when it cannot be read: Error() tells.
[[nodiscard]] std::optional<RolesPlace> RolesPlaceOf(DirectConnection &database,
                                                     const QString &prefix);

// A script for the server's own client that makes the accounts, with a password to be replaced, and gives
// each what its program needs in the newest version of the schema, and no more. It may run again.
[[nodiscard]] QString RolesScript(const RolesPlace &place);
