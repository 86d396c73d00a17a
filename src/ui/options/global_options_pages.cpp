#include "ui/options/global_options_pages.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/number_field.h"
#include "ui/common/text_field.h"
#include "ui/options/currency_editor.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

TextField *PasswordField(const char *objectName)
{
    auto *field = new TextField;
    field->setObjectName(QLatin1String(objectName));
    field->setEchoMode(QLineEdit::Password);
    return field;
}

} // namespace

CAdministratorGenOpt1st::CAdministratorGenOpt1st(Prompt &prompt, GlobalOptions &options)
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(new CurrencyEditor(prompt,
                                         options.currency,
                                         {tr("Traffic rate"),
                                          tr("Set new rate"),
                                          tr("Add"),
                                          tr("Delete"),
                                          tr("Configure"),
                                          tr("Set"),
                                          tr("Used currency")}));
}

QString CAdministratorGenOpt1st::Title() const
{
    return tr("Rate");
}

CAdministratorGenOptBind::CAdministratorGenOptBind(GlobalOptions &options)
    : BindPage(
        options.identMode, options.controlMac, tr("Enable IP-MAC addresses correspondence control"))
{ }

CAdministratorGenOptMisc::CAdministratorGenOptMisc(Prompt &messages, GlobalOptions &edited)
    : prompt(messages)
    , options(edited)
    , updatePeriod(new NumberField({.least = kMinUpdatePeriod, .most = kMaxUpdatePeriod}))
    , domainLogon(MakeButton<QCheckBox>(tr("Require domain logon"), "domainLogon"))
{
    updatePeriod->setObjectName(u"updatePeriod"_s);
    auto *form = new QFormLayout;
    form->addRow(LabelFor(tr("Database update period, sec:"), *updatePeriod), updatePeriod);
    form->addRow(domainLogon);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(PasswordBox());
    column->addStretch();
}

QWidget *CAdministratorGenOptMisc::PasswordBox()
{
    auto *box = new QGroupBox(tr("Client deinstall"));
    password = PasswordField("password");
    retyped = PasswordField("retyped");
    auto *form = new QFormLayout(box);
    form->addRow(LabelFor(tr("Deinstall password"), *password), password);
    form->addRow(LabelFor(tr("Retype password"), *retyped), retyped);
    return box;
}

QString CAdministratorGenOptMisc::Title() const
{
    return tr("Miscellaneous");
}

void CAdministratorGenOptMisc::Load()
{
    updatePeriod->SetNumber(options.updatePeriod < 0 ? 0
                                                     : static_cast<quint32>(options.updatePeriod));
    domainLogon->setChecked(options.domainLogon);
    password->setText(options.deinstallPassword);
    retyped->setText(options.deinstallPassword);
}

bool CAdministratorGenOptMisc::Leave()
{
    if (!HoldsNumber(prompt, *updatePeriod)) {
        return false;
    }
    if (password->text() != retyped->text()) {
        Refuse(prompt, *password, tr("You entered different passwords. Please re-enter"));
        return false;
    }
    return true;
}

void CAdministratorGenOptMisc::Collect()
{
    options.updatePeriod = static_cast<qint32>(updatePeriod->Number().value_or(0));
    options.domainLogon = domainLogon->isChecked();
    options.deinstallPassword = password->text();
}

CAdministratorGenOptNetwork::CAdministratorGenOptNetwork(Prompt &prompt, GlobalOptions &options)
    : NetworkPage(prompt,
                  options.ranges,
                  {tr("Local IP addresses"), tr("Add range"), tr("Delete range")},
                  options.exclusions,
                  {tr("Excluded IP addresses"),
                   tr("Enter IP address to exclude:"),
                   tr("Add address"),
                   tr("Delete address")})
{ }

CAdministratorGenOptProtocols::CAdministratorGenOptProtocols(Prompt &messages,
                                                             GlobalOptions &options)
    : ProtocolsPage(messages, options.protocols, options.monitorMode)
{ }
