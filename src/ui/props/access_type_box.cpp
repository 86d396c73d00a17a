#include "ui/props/access_type_box.h"

#include "ui/common/controls.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AccessTypeBox::AccessTypeBox(Options options, QWidget *parent)
    : QGroupBox(tr("Access type"), parent)
    , noControl(MakeButton<QRadioButton>(tr("No control"), "noControl"))
    , corporate(MakeButton<QRadioButton>(tr("Corporate"), "corporate"))
    , provider(MakeButton<QRadioButton>(tr("Provider"), "provider"))
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(noControl);
    column->addWidget(corporate);
    if (options == Options::TrafficAndTime) {
        traffic = MakeButton<QCheckBox>(tr("Traffic control"), "trafficControl");
        time = MakeButton<QCheckBox>(tr("Time control "), "timeControl");
        auto *indented = new QVBoxLayout;
        indented->setContentsMargins(style()->pixelMetric(QStyle::PM_IndicatorWidth)
                                         + style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing),
                                     0,
                                     0,
                                     0);
        for (QCheckBox *option : {traffic, time}) {
            indented->addWidget(option);
            connect(option, &QCheckBox::toggled, this, &AccessTypeBox::Changed);
        }
        column->addLayout(indented);
    }
    column->addWidget(provider);
    for (QRadioButton *type : {noControl, corporate, provider}) {
        connect(type, &QRadioButton::toggled, this, &AccessTypeBox::TypeToggled);
    }
}

void AccessTypeBox::Show(const AccessChoice &choice)
{
    const QSignalBlocker silent(this);
    CheckOneOf({noControl, corporate, provider}, ButtonOf(choice.type));
    if (traffic != nullptr) {
        traffic->setChecked(choice.traffic);
        time->setChecked(choice.time);
    }
    EnableOptions();
}

QRadioButton *AccessTypeBox::ButtonOf(AccessType access) const
{
    switch (access) {
    case AccessType::Corporate:
        return corporate;
    case AccessType::Provider:
        return provider;
    case AccessType::NoControl:
        break;
    }
    return noControl;
}

AccessChoice AccessTypeBox::Choice() const
{
    if (provider->isChecked()) {
        return {AccessType::Provider, false, false};
    }
    if (!corporate->isChecked()) {
        return {};
    }
    return {AccessType::Corporate,
            traffic == nullptr || traffic->isChecked(),
            time != nullptr && time->isChecked()};
}

void AccessTypeBox::TypeToggled(bool chosen)
{
    if (!chosen) {
        return;
    }
    EnableOptions();
    emit TypeChanged();
    emit Changed();
}

void AccessTypeBox::EnableOptions()
{
    if (traffic != nullptr) {
        traffic->setEnabled(corporate->isChecked());
        time->setEnabled(corporate->isChecked());
    }
}
