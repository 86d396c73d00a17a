#include "ui/accounts/traffic_chart.h"

#include "base/amount_text.h"
#include "ui/accounts/chart_look.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kBarShare = 0.7; // of a day's width
constexpr int kDaysPerDate = 7;

Megabytes Most(const std::vector<DailyTraffic> &days, Megabytes DailyTraffic::*amount)
{
    Megabytes most;
    for (const DailyTraffic &day : days) {
        most = std::max(most, day.*amount);
    }
    return most;
}

Megabytes Sum(const std::vector<DailyTraffic> &days, Megabytes DailyTraffic::*amount)
{
    Megabytes sum;
    for (const DailyTraffic &day : days) {
        sum += day.*amount;
    }
    return sum;
}

QString Text(Megabytes amount)
{
    return AmountText(amount.value);
}

// No more decimals than the step needs.
QString LineText(double amount, double step)
{
    const int decimals = step >= 1.0 ? 0 : (step >= 0.1 ? 1 : 2);
    return DecimalText(amount, decimals);
}

} // namespace

TrafficChart::TrafficChart(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Traffic of the last 30 days"));
    Describe();
}

void TrafficChart::SetDays(std::vector<DailyTraffic> newDays)
{
    days = std::move(newDays);
    scale =
        ScaleFor(Most(days, &DailyTraffic::received).value, Most(days, &DailyTraffic::sent).value);
    chosen = -1;
    Describe();
    update();
}

bool TrafficChart::IsEmpty() const
{
    return Sum(days, &DailyTraffic::received) <= Megabytes()
        && Sum(days, &DailyTraffic::sent) <= Megabytes();
}

QSize TrafficChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 15};
}

QSize TrafficChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 10};
}

QRectF TrafficChart::Plot() const
{
    const int line = fontMetrics().height();
    const QString widest = LineText(std::max(scale.Top(), scale.Bottom()), scale.step);
    const int left = fontMetrics().horizontalAdvance(widest) + line;
    return QRectF(rect()).adjusted(left, line * 2, -line / 2.0, -line * 3);
}

int TrafficChart::DayAt(double x) const
{
    const QRectF plot = Plot();
    const auto count = static_cast<int>(days.size());
    const int day = static_cast<int>(std::floor((x - plot.left()) * count / plot.width()));
    return day >= 0 && day < count ? day : -1;
}

QRectF TrafficChart::Bar(int day, double amount) const
{
    const QRectF plot = Plot();
    const double width = plot.width() / static_cast<double>(days.size());
    const double zero = plot.top() + plot.height() * scale.Position(0.0);
    const double end = plot.top() + plot.height() * scale.Position(amount);
    return QRectF(plot.left() + width * (day + (1.0 - kBarShare) / 2),
                  std::min(zero, end),
                  width * kBarShare,
                  std::abs(end - zero));
}

QString TrafficChart::Figures(const DailyTraffic &day) const
{
    return tr("%1: received %2 Mb, sent %3 Mb")
        .arg(day.day.toString(u"dd.MM.yyyy"_s), Text(day.received), Text(day.sent));
}

void TrafficChart::paintEvent(QPaintEvent * /*event*/)
{
    const ChartLook look(palette());
    QPainter painter(this);
    painter.fillRect(rect(), look.ground);
    if (IsEmpty()) {
        painter.setPen(look.text);
        painter.drawText(rect(), Qt::AlignCenter, tr("No traffic in the last 30 days"));
    } else {
        PaintLegend(painter, look);
        PaintLines(painter, look);
        PaintBars(painter, look);
        PaintDates(painter, look);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.backgroundColor = look.ground;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void TrafficChart::PaintLegend(QPainter &painter, const ChartLook &look) const
{
    const int line = fontMetrics().height();
    const QString received = tr("Received, Mb");
    const QRectF square(Plot().left(), line / 2.0 + line * 0.15, line * 0.7, line * 0.7);
    const double next = line * 2.5 + fontMetrics().horizontalAdvance(received);
    PaintSolid(painter, square, look.received);
    PaintHatched(painter, square.translated(next, 0), look.sent);
    painter.setPen(look.text);
    const double base = line / 2.0 + fontMetrics().ascent();
    painter.drawText(QPointF(square.right() + line * 0.3, base), received);
    painter.drawText(QPointF(square.right() + line * 0.3 + next, base), tr("Sent, Mb"));
}

void TrafficChart::PaintLines(QPainter &painter, const ChartLook &look) const
{
    const QRectF plot = Plot();
    const int half = fontMetrics().height() / 2;
    for (int number = -scale.linesDown; number <= scale.linesUp; ++number) {
        const double amount = scale.step * number;
        const double y = plot.top() + plot.height() * scale.Position(amount);
        painter.setPen(number == 0 ? look.text : look.line);
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(look.text);
        painter.drawText(QRectF(0, y - half, plot.left() - half, 2 * half),
                         Qt::AlignRight | Qt::AlignVCenter,
                         LineText(std::abs(amount), scale.step));
    }
}

void TrafficChart::PaintBars(QPainter &painter, const ChartLook &look) const
{
    const QRectF plot = Plot();
    if (chosen >= 0) {
        const double width = plot.width() / static_cast<double>(days.size());
        painter.fillRect(QRectF(plot.left() + width * chosen, plot.top(), width, plot.height()),
                         look.band);
    }
    for (int day = 0; day < static_cast<int>(days.size()); ++day) {
        const DailyTraffic &traffic = days[static_cast<std::size_t>(day)];
        if (traffic.received > Megabytes()) {
            PaintSolid(painter, Bar(day, traffic.received.value), look.received);
        }
        if (traffic.sent > Megabytes()) {
            PaintHatched(painter, Bar(day, -traffic.sent.value), look.sent);
        }
    }
}

// Today's date and every seventh before it; below them the chosen day's figures.
void TrafficChart::PaintDates(QPainter &painter, const ChartLook &look) const
{
    const QRectF plot = Plot();
    const int line = fontMetrics().height();
    const double width = plot.width() / static_cast<double>(days.size());
    painter.setPen(look.text);
    for (int day = static_cast<int>(days.size()) - 1; day >= 0; day -= kDaysPerDate) {
        const QRectF place(plot.left() + width * (day + 0.5) - line * 3,
                           plot.bottom() + line * 0.3,
                           line * 6,
                           line);
        const auto fits = place.right() <= rect().right();
        painter.drawText(fits ? place : place.translated(rect().right() - place.right(), 0),
                         fits ? Qt::AlignHCenter : Qt::AlignRight,
                         days[static_cast<std::size_t>(day)].day.toString(u"dd.MM."_s));
    }
    const QString figures = chosen >= 0 ? Figures(days[static_cast<std::size_t>(chosen)])
                                        : tr("Point at a day, or choose one with the arrow keys");
    painter.drawText(
        QRectF(0, plot.bottom() + line * 1.6, rect().width(), line), Qt::AlignCenter, figures);
}

void TrafficChart::Choose(int day)
{
    if (day == chosen) {
        return;
    }
    chosen = day;
    Describe();
    update();
}

void TrafficChart::keyPressEvent(QKeyEvent *event)
{
    const int last = static_cast<int>(days.size()) - 1;
    switch (event->key()) {
    case Qt::Key_Left:
        Choose(chosen < 0 ? last : std::max(0, chosen - 1));
        break;
    case Qt::Key_Right:
        Choose(std::min(last, chosen + 1));
        break;
    case Qt::Key_Home:
        Choose(std::min(0, last));
        break;
    case Qt::Key_End:
        Choose(last);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void TrafficChart::mouseMoveEvent(QMouseEvent *event)
{
    Choose(DayAt(event->position().x()));
}

void TrafficChart::mousePressEvent(QMouseEvent *event)
{
    Choose(DayAt(event->position().x()));
}

void TrafficChart::leaveEvent(QEvent * /*event*/)
{
    if (!hasFocus()) {
        Choose(-1);
    }
}

void TrafficChart::Describe()
{
    QString text = IsEmpty()
        ? tr("No traffic in the last 30 days.")
        : tr("Received %1 Mb, sent %2 Mb. Most on one day: received %3 Mb, sent %4 Mb.")
              .arg(Text(Sum(days, &DailyTraffic::received)),
                   Text(Sum(days, &DailyTraffic::sent)),
                   Text(Most(days, &DailyTraffic::received)),
                   Text(Most(days, &DailyTraffic::sent)));
    if (chosen >= 0) {
        text = Figures(days[static_cast<std::size_t>(chosen)]) % u". "_s % text;
    }
    setAccessibleDescription(text);
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}
