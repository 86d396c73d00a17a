// Fields for whole numbers and for amounts; both may be left blank.
#pragma once

#include <QLineEdit>

#include <limits>
#include <optional>

// Digits only, from 0 to 2147483647 or a given maximum; nothing beyond can be typed or pasted.
class WholeNumberField : public QLineEdit
{
    Q_OBJECT

public:
    explicit WholeNumberField(QWidget *parent = nullptr,
                              quint32 maximum = std::numeric_limits<qint32>::max());

    [[nodiscard]] std::optional<quint32> Number() const; // nothing while blank
    void SetNumber(quint32 number);
};

// An amount from 0 up with at most two decimals, or as many as it is told. The decimal separator may be typed as a point or as
// the locale writes it; the point is what the field itself shows.
class AmountField : public QLineEdit
{
    Q_OBJECT

public:
    explicit AmountField(QWidget *parent = nullptr, int maxDecimals = 2);

    [[nodiscard]] std::optional<double> Amount() const; // nothing while blank or only a separator
    void SetAmount(double amount); // with two decimals
};
