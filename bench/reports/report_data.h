// Ten million traffic records to report on: 500 users, one record a day each.
#pragma once

#include "reports/engine.h"

#include <QDate>
#include <QString>

constexpr int kReportRows = 10'000'000;

// The data source on the engine; made on its first use, which takes a minute on the slowest.
[[nodiscard]] QString ReportData(const QString &engine);

// The path of a layout file of the product, by its base name, or of the benchmark's own.
[[nodiscard]] QString LayoutFile(const QString &name);

// A request for that layout on the data source; an empty query is the layout's own.
[[nodiscard]] ReportRequest
RequestOn(const QString &engine, const QString &layout, const QString &query = {});

// The query of "Traffic (Detailed)" for so many users and so many of the last days.
[[nodiscard]] QString DetailedQuery(int users, int days);

// tollbrook-report with these options over the data source, into a file of this name in a folder of the benchmark.
[[nodiscard]] QStringList
ReportCommand(const QString &dsn, const QStringList &options, const QString &fileName);
