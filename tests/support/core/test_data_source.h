// The data sources of a test program: an odbc.ini of its own, and the one that the session is open on.
#pragma once

#include <QString>

namespace test_data_source {

// The folder of the program's own odbc.ini and files, which goes with the program.
[[nodiscard]] QString Folder();

// Adds a section to the odbc.ini before its data source is first used.
void Define(const QString &dsn, const QString &section);

// Puts a fresh SQLite database with the schema and its first rows behind `dsn`: a copy of one that is
// made once for the program.
void RenewSqlite(const QString &dsn);

// The file of such a database.
[[nodiscard]] QString SqliteFile(const QString &dsn);

// Makes the database one whose schema is older, or newer, than the program.
void ForgetSchemaVersion(const QString &dsn);
void RaiseSchemaVersion(const QString &dsn);

// Opens the session on `dsn`; RowsOf and EveryRow read it from now on. A failure fails the test.
void OpenSession(const QString &dsn);
void CloseSession();

} // namespace test_data_source
