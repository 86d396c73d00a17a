// The pages that only the Options dialog has. Each edits a part of its draft; OK collects them.
#pragma once

#include "admin/adapters.h"
#include "admin/options.h"
#include "base/prompt.h"
#include "ui/common/page.h"

class QCheckBox;
class NumberField;

class GeneralPage : public Page
{
    Q_OBJECT

public:
    GeneralPage(Prompt &prompt, Options &options);
    [[nodiscard]] QString Title() const override;
    void Load() override;
    [[nodiscard]] bool Leave() override;
    void Collect() override;

private:
    Prompt &prompt;
    Options &options;
    NumberField *updatePeriod;
};

class AdapterPage : public Page
{
    Q_OBJECT

public:
    AdapterPage(Prompt &prompt, Options &options, const QList<Adapter> &adapters);
    [[nodiscard]] QString Title() const override;
};

class TariffPage : public Page
{
    Q_OBJECT

public:
    TariffPage(Prompt &prompt, Options &options);
    [[nodiscard]] QString Title() const override;
};

class AuthenticationPage : public Page
{
    Q_OBJECT

public:
    AuthenticationPage(Prompt &prompt, Options &options);
    [[nodiscard]] QString Title() const override;
    void Load() override;
    [[nodiscard]] bool Leave() override;
    void Collect() override;

private:
    Prompt &prompt;
    Options &options;
    NumberField *port;
    QCheckBox *requiredForNew;
    QCheckBox *notLogged;
    QCheckBox *nonHost;
};
