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
                                         {u"Traffic rate"_s,
                                          u"Set new rate"_s,
                                          u"Add"_s,
                                          u"Delete"_s,
                                          u"Configure"_s,
                                          u"Set"_s,
                                          u"Used currency"_s}));
}

QString CAdministratorGenOpt1st::Title() const
{
    return u"Rate"_s;
}

CAdministratorGenOptBind::CAdministratorGenOptBind(GlobalOptions &options)
    : BindPage(
        options.identMode, options.controlMac, u"Enable IP-MAC addresses correspondence control"_s)
{ }

CAdministratorGenOptMisc::CAdministratorGenOptMisc(Prompt &messages, GlobalOptions &edited)
    : prompt(messages)
    , options(edited)
    , updatePeriod(new NumberField({.least = kMinUpdatePeriod, .most = kMaxUpdatePeriod}))
    , domainLogon(MakeButton<QCheckBox>(u"Require domain logon"_s, "domainLogon"))
{
    updatePeriod->setObjectName(u"updatePeriod"_s);
    auto *form = new QFormLayout;
    form->addRow(LabelFor(u"Database update period, sec:"_s, *updatePeriod), updatePeriod);
    form->addRow(domainLogon);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(PasswordBox());
    column->addStretch();
}

QWidget *CAdministratorGenOptMisc::PasswordBox()
{
    auto *box = new QGroupBox(u"Client deinstall"_s);
    password = PasswordField("password");
    retyped = PasswordField("retyped");
    auto *form = new QFormLayout(box);
    form->addRow(LabelFor(u"Deinstall password"_s, *password), password);
    form->addRow(LabelFor(u"Retype password"_s, *retyped), retyped);
    return box;
}

QString CAdministratorGenOptMisc::Title() const
{
    return u"Miscellaneous"_s;
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
        Refuse(prompt, *password, u"You entered different passwords. Please re-enter"_s);
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
                  {u"Local IP addresses"_s, u"Add range"_s, u"Delete range"_s},
                  options.exclusions,
                  {u"Excluded IP addresses"_s,
                   u"Enter IP address to exclude:"_s,
                   u"Add address"_s,
                   u"Delete address"_s})
{ }

CAdministratorGenOptProtocols::CAdministratorGenOptProtocols(Prompt &messages,
                                                             GlobalOptions &options)
    : ProtocolsPage(messages, options.protocols, options.monitorMode)
{ }
