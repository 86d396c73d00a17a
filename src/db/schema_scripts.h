// The scripts of schema/: the first schema, and the numbered steps that have changed it since.
//
// A step is a file for each engine in schema/steps/, such as 001-service-tables.sqlite.sql; the numbers
// begin with 1 and leave none out. A script that has been released is never changed: what is to be
// different is one more step. MariaDB keeps each statement that makes or alters a table at once, so
// that there each statement of a step must do no harm when it is run again.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

struct Dialect;

struct SchemaStep
{
    int number; // the version that the schema has behind it
    QString name; // the file's, such as "service-tables"
    QStringList statements; // one after the other, in the engine's spelling
};

// The statements that make version 0: its tables, their indexes and first rows.
[[nodiscard]] QStringList FirstSchema(const Dialect &dialect);

// All steps in their order.
[[nodiscard]] std::vector<SchemaStep> SchemaSteps(const Dialect &dialect);

// The version that this program works with: that of the last step.
[[nodiscard]] int NewestSchema();
