// The pages of the older global options sheet. Each edits a part of its draft; OK collects them.
#pragma once

#include "admin/global_options.h"
#include "ui/options/bind_page.h"
#include "ui/options/network_page.h"
#include "ui/options/protocols_page.h"

class QLineEdit;
class NumberField;

// "Rate": the traffic price and the currencies.
class CAdministratorGenOpt1st : public Page
{
    Q_OBJECT

public:
    CAdministratorGenOpt1st(Prompt &prompt, GlobalOptions &options);
    [[nodiscard]] QString Title() const override;
};

class CAdministratorGenOptBind : public BindPage
{
    Q_OBJECT

public:
    explicit CAdministratorGenOptBind(GlobalOptions &options);
};

// "Miscellaneous"
class CAdministratorGenOptMisc : public Page
{
    Q_OBJECT

public:
    CAdministratorGenOptMisc(Prompt &prompt, GlobalOptions &options);
    [[nodiscard]] QString Title() const override;
    void Load() override;

    // Refuses a period outside 1 to 1000 and two passwords that differ.
    [[nodiscard]] bool Leave() override;
    void Collect() override;

private:
    [[nodiscard]] QWidget *PasswordBox();

    Prompt &prompt;
    GlobalOptions &options;
    NumberField *updatePeriod;
    QCheckBox *domainLogon;
    QLineEdit *password;
    QLineEdit *retyped;
};

class CAdministratorGenOptNetwork : public NetworkPage
{
    Q_OBJECT

public:
    CAdministratorGenOptNetwork(Prompt &prompt, GlobalOptions &options);
};

class CAdministratorGenOptProtocols : public ProtocolsPage
{
    Q_OBJECT

public:
    CAdministratorGenOptProtocols(Prompt &prompt, GlobalOptions &options);
};
