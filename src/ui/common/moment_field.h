// Fields for a day and for a time of day.
#pragma once

#include <QDate>
#include <QLineEdit>
#include <QTime>

#include <optional>

// Holds whatever is typed, and never changes it. What cannot be read, or is blank, is refused on OK; what
// cannot be read is framed and described as such as long as it stands there. Up and Down go to a later
// and an earlier one, Page Up and Page Down by a larger step; what cannot be read stays as it is.
class MomentField : public QLineEdit
{
    Q_OBJECT

public:
    [[nodiscard]] virtual bool IsReadable() const = 0;

    // What the field takes, as a request.
    [[nodiscard]] virtual QString Request() const = 0;

protected:
    explicit MomentField(QWidget *parent);

    virtual void Step(int by, bool isLarge) = 0;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] bool IsWrong() const;
    void Judge();
};

// A day, shown as 2026-03-31. The calendar at its end, Alt+Down and F4 open a month to choose from.
class DayField : public MomentField
{
    Q_OBJECT

public:
    explicit DayField(QDate day, QWidget *parent = nullptr);

    [[nodiscard]] std::optional<QDate> Day() const; // nothing for what cannot be read
    void SetDay(QDate day);

    [[nodiscard]] bool IsReadable() const override;
    [[nodiscard]] QString Request() const override;

protected:
    void Step(int by, bool isLarge) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void OpenCalendar();
};

// A time of day, shown as 17:45:00.
class TimeField : public MomentField
{
    Q_OBJECT

public:
    explicit TimeField(QTime time, QWidget *parent = nullptr);

    [[nodiscard]] std::optional<QTime> Time() const; // nothing for what cannot be read
    void SetTime(QTime time);

    [[nodiscard]] bool IsReadable() const override;
    [[nodiscard]] QString Request() const override;

protected:
    void Step(int by, bool isLarge) override;
};
