// A line of text that is cut with "..." where there is no room for it.
#pragma once

#include <QLabel>

// Never makes its window wider than a short line: a name may have 250 characters. What is cut can be read
// in the tooltip.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(const QString &text = {}, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString Shown() const;
};
