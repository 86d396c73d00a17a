// A field for a number.
#pragma once

#include "base/number_entry.h"

#include <QLineEdit>

#include <optional>

// Holds whatever is typed, and never changes it. What is not a number within the bounds is framed and
// described as such as long as it stands there; a blank field is not.
class NumberField : public QLineEdit
{
    Q_OBJECT

public:
    explicit NumberField(const NumberBounds &bounds = {}, QWidget *parent = nullptr);

    // Of what it takes from now on.
    void SetBounds(const NumberBounds &newBounds);

    // The keys Up and Down make a whole number one more or one less, as far as the bounds go.
    void StepByKeys();

    // What the number counts, as "Mb"; read out as the field's description.
    void SetUnit(const QString &unit);

    [[nodiscard]] tl::expected<double, NumberFault> Entered() const;
    [[nodiscard]] std::optional<double> Amount() const; // nothing for any fault
    [[nodiscard]] std::optional<quint32> Number() const; // of a field without decimals
    [[nodiscard]] bool IsBlank() const;
    [[nodiscard]] bool IsWrong() const; // neither blank nor a number within the bounds

    void SetNumber(quint32 number);
    void SetAmount(double amount); // as AmountText

    [[nodiscard]] bool IsUnclear() const; // a number that must be written otherwise

    // What the field takes, or how what stands there must be written to mean one number, as a request.
    [[nodiscard]] QString Request() const;

signals:
    // A person changed the number by Up or Down.
    void Stepped();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString RequestOfOneMeaning() const;
    void Judge();
    void Step(int by);

    NumberBounds bounds;
    QString unit;
    bool stepsByKeys = false;
};
