// An import as a test makes it: planned from the text of a file, shown as lines, and run.
#pragma once

#include "exchange/import_action.h"

#include <QStringList>

#include <gtest/gtest.h>

[[nodiscard]] inline ImportJob JobOf(const QString &text, const ImportContext &context = {})
{
    const auto table = ReadImportTable(text.toUtf8());
    EXPECT_TRUE(table) << qPrintable(table ? QString() : table.error());
    const auto stored = ReadStoredUsers();
    EXPECT_TRUE(stored);
    if (!table || !stored) {
        return {};
    }
    return {*table, context, PlanImport(*table, *stored, context)};
}

// "name state: words" of each row.
[[nodiscard]] inline QStringList Shown(const ImportPlan &plan)
{
    QStringList lines;
    for (const ImportRow &row : plan.rows) {
        lines << row.name + u' ' + TextOf(row.state) + u": " + WordsFor(row);
    }
    return lines;
}

[[nodiscard]] inline Outcome RunImport(const ImportJob &job, const ServiceLink *link = nullptr)
{
    return RunAction(ImportAction(std::make_shared<const ImportJob>(job)), {}, link);
}
