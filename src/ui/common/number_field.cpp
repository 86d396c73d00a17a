#include "ui/common/number_field.h"

#include "base/text.h"

#include <QLocale>
#include <QRegularExpression>
#include <QValidator>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class UpTo : public QValidator
{
public:
    UpTo(quint32 bound, QObject *parent) : QValidator(parent), maximum(bound) { }

    State validate(QString &input, int & /*cursor*/) const override
    {
        for (const QChar c : std::as_const(input)) {
            if (c < u'0' || c > u'9') {
                return Invalid;
            }
        }
        bool fits = true;
        const bool small = input.isEmpty() || (input.toUInt(&fits) <= maximum && fits);
        return small && input.size() <= kLongest ? Acceptable : Invalid;
    }

private:
    static constexpr qsizetype kLongest = 10;
    quint32 maximum;
};

// Both spellings of the separator become a point as they are typed.
class UpToDecimals : public QValidator
{
public:
    UpToDecimals(int count, QObject *parent)
        : QValidator(parent)
        , pattern(uR"(^\d{0,12}(\.\d{0,%1})?$)"_s.arg(count))
    { }

    State validate(QString &input, int & /*cursor*/) const override
    {
        input.replace(QLocale().decimalPoint(), u"."_s);
        return pattern.match(input).hasMatch() ? Acceptable : Invalid;
    }

private:
    QRegularExpression pattern;
};

} // namespace

WholeNumberField::WholeNumberField(QWidget *parent, quint32 maximum) : QLineEdit(parent)
{
    setInputMethodHints(Qt::ImhDigitsOnly);
    setValidator(new UpTo(maximum, this));
}

std::optional<quint32> WholeNumberField::Number() const
{
    bool isNumber = false;
    const quint32 number = text().toUInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

void WholeNumberField::SetNumber(quint32 number)
{
    setText(QString::number(number));
}

AmountField::AmountField(QWidget *parent, int maxDecimals) : QLineEdit(parent)
{
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    setValidator(new UpToDecimals(maxDecimals, this));
}

std::optional<double> AmountField::Amount() const
{
    bool isNumber = false;
    const double amount = text().toDouble(&isNumber);
    return isNumber ? std::optional(amount) : std::nullopt;
}

void AmountField::SetAmount(double amount)
{
    setText(QString::number(amount, 'f', 2));
}
