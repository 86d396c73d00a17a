#include "ui/options/options_pages.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/number_field.h"
#include "ui/options/adapter_chooser.h"
#include "ui/options/currency_editor.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr NumberBounds kAuthPort {.least = 0, .most = 65535}; // 0 stands for none

// A number that a person wrote into the store may be below 0; the field takes none.
quint32 Shown(qint32 number)
{
    return number < 0 ? 0U : static_cast<quint32>(number);
}

// A number that is shown as it was stays what it is, although the field cannot hold it.
void Take(qint32 &number, const NumberField &field)
{
    const quint32 typed = field.Number().value_or(0);
    if (typed != Shown(number)) {
        number = static_cast<qint32>(typed);
    }
}

} // namespace

GeneralPage::GeneralPage(Prompt &messages, Options &edited)
    : prompt(messages)
    , options(edited)
    , updatePeriod(new NumberField)
{
    updatePeriod->setObjectName(u"updatePeriod"_s);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(u"Database update period, sec"_s, *updatePeriod), updatePeriod);
}

QString GeneralPage::Title() const
{
    return u"General"_s;
}

void GeneralPage::Load()
{
    updatePeriod->SetNumber(Shown(options.updatePeriod));
}

bool GeneralPage::Leave()
{
    return HoldsNumber(prompt, *updatePeriod, u"Please enter an integer."_s);
}

void GeneralPage::Collect()
{
    Take(options.updatePeriod, *updatePeriod);
}

AdapterPage::AdapterPage(Prompt &prompt, Options &options, const QList<Adapter> &adapters)
{
    auto *chooser = new AdapterChooser(prompt, adapters);
    chooser->SetCurrent(options.adapter.value_or(u"Error!"_s));
    connect(chooser, &AdapterChooser::Picked, this, [&options](const Adapter &adapter) {
        options.adapter = adapter.description;
    });
    auto *column = new QVBoxLayout(this);
    column->addWidget(chooser);
    column->addStretch();
}

QString AdapterPage::Title() const
{
    return u"Adapter selection"_s;
}

TariffPage::TariffPage(Prompt &prompt, Options &options)
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(new CurrencyEditor(prompt,
                                         options.currency,
                                         {u"Current tariff"_s,
                                          u"Set"_s,
                                          u"Add..."_s,
                                          u"Remove"_s,
                                          u"Properties..."_s,
                                          u"Set"_s,
                                          u"Currency"_s}));
}

QString TariffPage::Title() const
{
    return u"Tariff"_s;
}

AuthenticationPage::AuthenticationPage(Prompt &messages, Options &edited)
    : prompt(messages)
    , options(edited)
    , port(new NumberField(kAuthPort))
    , requiredForNew(
          MakeButton<QCheckBox>(u"Require authentication from all new users"_s, "authReqNew"))
    , notLogged(MakeButton<QCheckBox>(u"Allow authentication for users not logged to domain"_s,
                                      "allowNotLogged"))
    , nonHost(
          MakeButton<QCheckBox>(u"Allow authentication from non-host computers"_s, "allowNonHost"))
{
    port->setObjectName(u"authPort"_s);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(u"Authentication server port"_s, *port), port);
    for (QCheckBox *box : {requiredForNew, notLogged, nonHost}) {
        form->addRow(box);
    }
}

QString AuthenticationPage::Title() const
{
    return u"Authentication"_s;
}

void AuthenticationPage::Load()
{
    port->SetNumber(Shown(options.authPort));
    requiredForNew->setChecked(options.authRequiredForNew);
    notLogged->setChecked(options.allowNotLogged);
    nonHost->setChecked(options.allowNonHost);
}

bool AuthenticationPage::Leave()
{
    return HoldsNumber(prompt, *port);
}

void AuthenticationPage::Collect()
{
    Take(options.authPort, *port);
    options.authRequiredForNew = requiredForNew->isChecked();
    options.allowNotLogged = notLogged->isChecked();
    options.allowNonHost = nonHost->isChecked();
}
