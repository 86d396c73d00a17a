#include "ui/common/moment_field.h"

#include "base/day.h"
#include "base/moment_entry.h"
#include "ui/common/icons.h"
#include "ui/common/wrong_mark.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecondsInMinute = 60;
constexpr int kSecondsInHour = 60 * kSecondsInMinute;
constexpr int kLastSecond = 24 * kSecondsInHour - 1;

QString Shown(QDate day)
{
    return day.toString(u"yyyy-MM-dd"_s);
}

QString Shown(QTime time)
{
    return time.toString(u"HH:mm:ss"_s);
}

// Below the field, or above it where the screen ends.
QPoint PlaceBeside(const QWidget &field, QSize size)
{
    const QRect screen = field.screen()->availableGeometry();
    const QPoint below = field.mapToGlobal(QPoint(0, field.height()));
    const bool fits = below.y() + size.height() <= screen.bottom();
    const int top = fits ? below.y() : below.y() - field.height() - size.height();
    return {std::max(screen.left(), std::min(below.x(), screen.right() - size.width())), top};
}

} // namespace

MomentField::MomentField(QWidget *parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, &MomentField::Judge);
}

bool MomentField::IsWrong() const
{
    return isEnabled() && !text().trimmed().isEmpty() && !IsReadable();
}

// The description is what a screen reader says of the mark.
void MomentField::Judge()
{
    const QString said = IsWrong() ? Request() : QString();
    setAccessibleDescription(said);
    setToolTip(said);
    update();
}

void MomentField::keyPressEvent(QKeyEvent *event)
{
    const bool isLater = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp;
    const bool isLarge = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    const bool isStep = isLater || isLarge || event->key() == Qt::Key_Down;
    if (isStep && event->modifiers() == Qt::NoModifier) {
        Step(isLater ? 1 : -1, isLarge);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void MomentField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        Judge();
    }
}

void MomentField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (IsWrong()) {
        PaintWrongMark(*this);
    }
}

DayField::DayField(QDate day, QWidget *parent) : MomentField(parent)
{
    auto *open = addAction(IconOf(Picture::Calendar), TrailingPosition);
    open->setText(tr("Calendar"));
    open->setToolTip(tr("Choose from a calendar (Alt+Down)"));
    connect(open, &QAction::triggered, this, &DayField::OpenCalendar);
    SetDay(day);
}

std::optional<QDate> DayField::Day() const
{
    return DayFrom(text());
}

void DayField::SetDay(QDate day)
{
    setText(Shown(day));
}

bool DayField::IsReadable() const
{
    return Day().has_value();
}

QString DayField::Request() const
{
    return tr("Please enter a day, as in %1.").arg(Shown(Today()));
}

void DayField::Step(int by, bool isLarge)
{
    const auto day = Day();
    if (day) {
        const QDate next = isLarge ? day->addMonths(by) : day->addDays(by);
        if (DayFrom(Shown(next))) {
            SetDay(next);
            selectAll();
        }
    }
}

void DayField::keyPressEvent(QKeyEvent *event)
{
    const bool isAltDown =
        event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (isAltDown || event->key() == Qt::Key_F4) {
        OpenCalendar();
    } else {
        MomentField::keyPressEvent(event);
    }
}

void DayField::OpenCalendar()
{
    auto *popup = new QFrame(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto *calendar = new QCalendarWidget;
    calendar->setObjectName(u"calendar"_s);
    calendar->setAccessibleName(accessibleName());
    calendar->setSelectedDate(Day().value_or(Today()));
    auto *column = new QVBoxLayout(popup);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(calendar);
    const auto take = [this, popup](QDate day) {
        SetDay(day);
        popup->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    popup->move(PlaceBeside(*this, popup->sizeHint()));
    popup->show();
    calendar->setFocus();
}

TimeField::TimeField(QTime time, QWidget *parent) : MomentField(parent)
{
    SetTime(time);
}

std::optional<QTime> TimeField::Time() const
{
    return TimeFrom(text());
}

void TimeField::SetTime(QTime time)
{
    setText(Shown(time));
}

bool TimeField::IsReadable() const
{
    return Time().has_value();
}

QString TimeField::Request() const
{
    return tr("Please enter a time, as in %1.").arg(u"17:45"_s);
}

// Within the day.
void TimeField::Step(int by, bool isLarge)
{
    if (const auto time = Time()) {
        const int step = by * (isLarge ? kSecondsInHour : kSecondsInMinute);
        const int next = time->msecsSinceStartOfDay() / 1000 + step;
        if (next >= 0 && next <= kLastSecond) {
            SetTime(QTime(0, 0).addSecs(next));
            selectAll();
        }
    }
}
