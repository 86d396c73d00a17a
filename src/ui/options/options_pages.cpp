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
    form->addRow(LabelFor(tr("Database update period, sec"), *updatePeriod), updatePeriod);
}

QString GeneralPage::Title() const
{
    return tr("General");
}

void GeneralPage::Load()
{
    updatePeriod->SetNumber(Shown(options.updatePeriod));
}

bool GeneralPage::Leave()
{
    return HoldsNumber(prompt, *updatePeriod, tr("Please enter an integer."));
}

void GeneralPage::Collect()
{
    Take(options.updatePeriod, *updatePeriod);
}

AdapterPage::AdapterPage(Prompt &prompt, Options &options, const QList<Adapter> &adapters)
{
    auto *chooser = new AdapterChooser(prompt, adapters);
    chooser->SetCurrent(options.adapter.value_or(tr("Error!")));
    connect(chooser, &AdapterChooser::Picked, this, [&options](const Adapter &adapter) {
        options.adapter = adapter.description;
    });
    auto *column = new QVBoxLayout(this);
    column->addWidget(chooser);
    column->addStretch();
}

QString AdapterPage::Title() const
{
    return tr("Adapter selection");
}

TariffPage::TariffPage(Prompt &prompt, Options &options)
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(new CurrencyEditor(prompt,
                                         options.currency,
                                         {tr("Current tariff"),
                                          tr("Set"),
                                          tr("Add..."),
                                          tr("Remove"),
                                          tr("Properties..."),
                                          tr("Set"),
                                          tr("Currency")}));
}

QString TariffPage::Title() const
{
    return tr("Tariff");
}

AuthenticationPage::AuthenticationPage(Prompt &messages, Options &edited)
    : prompt(messages)
    , options(edited)
    , port(new NumberField(kAuthPort))
    , requiredForNew(
          MakeButton<QCheckBox>(tr("Require authentication from all new users"), "authReqNew"))
    , notLogged(MakeButton<QCheckBox>(tr("Allow authentication for users not logged to domain"),
                                      "allowNotLogged"))
    , nonHost(
          MakeButton<QCheckBox>(tr("Allow authentication from non-host computers"), "allowNonHost"))
{
    port->setObjectName(u"authPort"_s);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("Authentication server port"), *port), port);
    for (QCheckBox *box : {requiredForNew, notLogged, nonHost}) {
        form->addRow(box);
    }
}

QString AuthenticationPage::Title() const
{
    return tr("Authentication");
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
