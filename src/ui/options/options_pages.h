// The pages that only the Options dialog has. Each edits a part of its draft; OK collects them.
#pragma once

#include "admin/adapters.h"
#include "admin/options.h"
#include "ui/common/page.h"

class QCheckBox;
class WholeNumberField;

class GeneralPage : public Page
{
    Q_OBJECT

public:
    explicit GeneralPage(Options &options);
    [[nodiscard]] QString Title() const override;
    void Load() override;
    [[nodiscard]] bool Leave() override;
    void Collect() override;

private:
    Options &options;
    WholeNumberField *updatePeriod;
};

class AdapterPage : public Page
{
    Q_OBJECT

public:
    AdapterPage(Options &options, const QList<Adapter> &adapters);
    [[nodiscard]] QString Title() const override;
};

class TariffPage : public Page
{
    Q_OBJECT

public:
    explicit TariffPage(Options &options);
    [[nodiscard]] QString Title() const override;
};

class AuthenticationPage : public Page
{
    Q_OBJECT

public:
    explicit AuthenticationPage(Options &options);
    [[nodiscard]] QString Title() const override;
    void Load() override;
    [[nodiscard]] bool Leave() override;
    void Collect() override;

private:
    Options &options;
    WholeNumberField *port;
    QCheckBox *requiredForNew;
    QCheckBox *notLogged;
    QCheckBox *nonHost;
};
