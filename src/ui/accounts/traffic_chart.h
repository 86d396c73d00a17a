// Traffic day by day as bars: received above the zero line, sent below it.
#pragma once

#include "accounts/statistics.h"
#include "ui/accounts/chart_scale.h"

#include <QWidget>

struct ChartLook;

// Which direction a bar shows can be told by its place, its colour and its pattern. A day is chosen
// with the mouse or the keys Left, Right, Home and End; its figures stand below the bars and in the
// accessible description, which sums up all days.
class TrafficChart : public QWidget
{
    Q_OBJECT

public:
    explicit TrafficChart(QWidget *parent);

    void SetDays(std::vector<DailyTraffic> newDays);

    // Counted from 0; -1 while no day is chosen.
    [[nodiscard]] int ChosenDay() const { return chosen; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] QRectF Plot() const; // the bars' area
    [[nodiscard]] int DayAt(double x) const; // -1 outside the bars' area
    [[nodiscard]] QRectF Bar(int day, double amount) const; // below the zero line when negative
    [[nodiscard]] QString Figures(const DailyTraffic &day) const;

    void PaintLegend(QPainter &painter, const ChartLook &look) const;
    void PaintLines(QPainter &painter, const ChartLook &look) const;
    void PaintBars(QPainter &painter, const ChartLook &look) const;
    void PaintDates(QPainter &painter, const ChartLook &look) const;
    void Choose(int day);
    void Describe();

    std::vector<DailyTraffic> days;
    ChartScale scale;
    int chosen = -1;
};
