#include "ui/options/adapter_dialog.h"

#include "service/service_guard.h"
#include "ui/options/adapter_chooser.h"
#include "ui/options/settings_window.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AdapterDialog::AdapterDialog(const AppServices &appServices,
                             const QList<Adapter> &adapters,
                             bool mayChange,
                             QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , chooser(new AdapterChooser(services.prompt, adapters))
{
    setWindowTitle(tr("Select network card Tollbrook will work with"));
    ShowBound(adapters);
    chooser->SetMayChange(mayChange);
    connect(chooser, &AdapterChooser::Picked, this, &AdapterDialog::Bind);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setObjectName(u"close"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(chooser);
    column->addWidget(buttons);
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) * 3 / 2);
}

void AdapterDialog::ShowBound(const QList<Adapter> &adapters)
{
    const auto stored = BoundAdapter(services.settings);
    if (!stored) {
        TellUnreadSettings(services, {stored.error()});
        return;
    }
    const QString description = stored->value_or(QString());
    bound = FindAdapter(adapters, description) ? description : QString();
    chooser->SetCurrent(bound);
}

void AdapterDialog::Bind(const Adapter &adapter)
{
    const auto bind = [adapter, &store = services.settings](const Answers &) {
        SaveReport report;
        report.Add(settings_names::kAdapter, BindAdapter(store, adapter));
        return report;
    };
    if (PerformSave(services, this, bind)) {
        bound = adapter.description;
    }
    chooser->SetCurrent(bound);
}

void OpenAdapterBinding(const AppServices &services, QWidget *parent)
{
    const auto mayChange = AdapterMayChange(services.control, services.prompt);
    if (mayChange) {
        AdapterDialog(services, SystemAdapters(), *mayChange, parent).exec();
    }
}
