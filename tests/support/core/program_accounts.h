// The accounts of the programs at a database server, each with the rights that the product gives it.
#pragma once

#include <QString>

// The data source by which `role` ("console", "service", "reports", "viewer" or "backup") reaches the
// database of the engine's fixture. The embedded engine has no accounts: there it is the fixture's own. The
// accounts are made, by the server's own client, when the first of them is asked for.
[[nodiscard]] QString AccountSource(const QString &engine, const QString &role);

// The name of such an account.
[[nodiscard]] QString AccountName(const QString &role);

// Runs a script on the data source's server by the server's own client, in its database; what that said
// of a failure, empty for none.
[[nodiscard]] QString RunByClient(const QString &dsn, const QString &script);

// Removes what AccountSource made on the engine, before its database goes.
void DropAccounts(const QString &engine);
