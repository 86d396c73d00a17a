#include "ui/common/number_field.h"

#include "base/amount_text.h"
#include "ui/common/wrong_mark.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

NumberField::NumberField(const NumberBounds &taken, QWidget *parent)
    : QLineEdit(parent)
    , bounds(taken)
{
    setInputMethodHints(bounds.decimals > 0 ? Qt::ImhFormattedNumbersOnly : Qt::ImhDigitsOnly);
    connect(this, &QLineEdit::textChanged, this, &NumberField::Judge);
}

void NumberField::SetBounds(const NumberBounds &newBounds)
{
    bounds = newBounds;
    Judge();
}

void NumberField::StepByKeys()
{
    stepsByKeys = true;
}

void NumberField::SetUnit(const QString &newUnit)
{
    unit = newUnit;
    Judge();
}

tl::expected<double, NumberFault> NumberField::Entered() const
{
    return NumberFrom(text(), bounds);
}

std::optional<double> NumberField::Amount() const
{
    const auto entered = Entered();
    return entered ? std::optional(*entered) : std::nullopt;
}

std::optional<quint32> NumberField::Number() const
{
    const auto entered = Entered();
    return entered ? std::optional(static_cast<quint32>(*entered)) : std::nullopt;
}

bool NumberField::IsBlank() const
{
    const auto entered = Entered();
    return !entered && entered.error() == NumberFault::Blank;
}

bool NumberField::IsWrong() const
{
    return !Entered() && !IsBlank();
}

bool NumberField::IsUnclear() const
{
    const auto entered = Entered();
    return !entered
        && (entered.error() == NumberFault::Ambiguous
            || entered.error() == NumberFault::TooPrecise);
}

void NumberField::SetNumber(quint32 number)
{
    setText(QString::number(number));
}

void NumberField::SetAmount(double amount)
{
    setText(AmountText(amount));
}

QString NumberField::RequestOfOneMeaning() const
{
    const QLocale locale;
    const QString typed = text().trimmed();
    const QString thousands = QString(typed).remove(locale.groupSeparator());
    const QString decimals = QString(typed).replace(locale.groupSeparator(), locale.decimalPoint());
    if (!NumberFrom(decimals, bounds)) {
        return tr("\"%1\" can be read in two ways. Please enter \"%2\".").arg(typed, thousands);
    }
    return tr("\"%1\" can be read in two ways. Please enter \"%2\" or \"%3\".")
        .arg(typed, thousands, decimals);
}

QString NumberField::Request() const
{
    if (const auto entered = Entered(); !entered && entered.error() == NumberFault::Ambiguous) {
        return RequestOfOneMeaning();
    }
    const auto inWords = [](double bound) {
        return DecimalText(bound, QLocale::FloatingPointShortest);
    };
    if (bounds.decimals == 0) {
        return tr("Please enter an integer between %1 and %2.")
            .arg(inWords(bounds.least), inWords(bounds.most));
    }
    return tr("Please enter a number between %1 and %2, with at most %n decimals.",
              nullptr,
              bounds.decimals)
        .arg(inWords(bounds.least), inWords(bounds.most));
}

// The description is what a screen reader says of the mark.
void NumberField::Judge()
{
    const bool isWrong = IsWrong();
    const QStringList said = isWrong && !unit.isEmpty() ? QStringList {unit, Request()}
                                                        : QStringList {isWrong ? Request() : unit};
    setAccessibleDescription(said.join(u". "_s));
    setToolTip(isWrong ? Request() : QString());
    update();
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    const bool isUp = event->key() == Qt::Key_Up;
    if (stepsByKeys && (isUp || event->key() == Qt::Key_Down)) {
        Step(isUp ? 1 : -1);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

// What is no number stays as it was typed.
void NumberField::Step(int by)
{
    const auto number = Amount();
    const double next = std::clamp(number.value_or(0.0) + by, bounds.least, bounds.most);
    if (number && next != *number) {
        SetNumber(static_cast<quint32>(next));
        selectAll();
        emit Stepped();
    }
}

void NumberField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (IsWrong()) {
        PaintWrongMark(*this);
    }
}
