// The profile that the accounting service gives to a newly seen user.
#pragma once

#include "admin/options.h"
#include "base/prompt.h"
#include "ui/common/page.h"

class AccessTypeBox;
class QCheckBox;
class QComboBox;
class NumberField;

class DefaultProfilePage : public Page
{
    Q_OBJECT

public:
    DefaultProfilePage(Prompt &prompt, Options &options);
    [[nodiscard]] QString Title() const override;
    void Load() override;
    [[nodiscard]] bool Leave() override;
    void Collect() override;

private:
    Prompt &prompt;
    Options &options;
    AccessTypeBox *type;
    QComboBox *period;
    NumberField *trafficLimit;
    NumberField *timeLimit;
    QCheckBox *blocked;
};
