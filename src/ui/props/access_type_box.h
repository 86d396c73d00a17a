// "No control", "Corporate" and "Provider", with the two corporate options where there are any.
#pragma once

#include "access/access_mode.h"

#include <QGroupBox>

class QCheckBox;
class QRadioButton;

class AccessTypeBox : public QGroupBox
{
    Q_OBJECT

public:
    enum class Options { None, TrafficAndTime };

    explicit AccessTypeBox(Options options, QWidget *parent = nullptr);

    void Show(const AccessChoice &choice);

    // Without options "Corporate" stands for traffic control.
    [[nodiscard]] AccessChoice Choice() const;

signals:
    void TypeChanged(); // another of the three was chosen
    void Changed(); // that, or an option

private:
    [[nodiscard]] QRadioButton *ButtonOf(AccessType access) const;
    void TypeToggled(bool chosen);
    void EnableOptions();

    QRadioButton *noControl;
    QRadioButton *corporate;
    QRadioButton *provider;
    QCheckBox *traffic = nullptr;
    QCheckBox *time = nullptr;
};
