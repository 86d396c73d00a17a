// Draws a report's chart; lengths are those of paper.h.
#pragma once

#include "reports/report_table.h"

#include <QRectF>

class QPainter;

void PaintReportChart(QPainter &painter, const QRectF &place, const ReportChart &chart);

// The numbers at which an axis from 0 to `most` has its ticks: round ones, at most `ticks` steps.
[[nodiscard]] std::vector<double> AxisTicks(double most, int ticks);
