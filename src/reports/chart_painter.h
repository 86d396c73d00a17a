// Draws a report's chart; lengths are those of paper.h.
#pragma once

#include "reports/canvas.h"
#include "reports/report_table.h"

// How much room a chart takes above the rows; 0 where there is none.
[[nodiscard]] double ChartHeight(const ReportChart &chart);

// `place` is as high as ChartHeight, or less.
void PaintReportChart(Canvas &canvas, const QRectF &place, const ReportChart &chart);

// The numbers at which an axis from 0 to `most` has its ticks: round ones, at most `ticks` steps.
[[nodiscard]] std::vector<double> AxisTicks(double most, int ticks);

// Which of a chart's steps have a mark below them, evenly, where at most so many find room: weeks and
// days from the first on, months from a January on where a year or more lies between them.
[[nodiscard]] std::vector<size_t> MarkedSteps(const ReportChart &chart, int most);
