#include "ui/options/adapter_dialog.h"

#include "service/service_guard.h"
#include "ui/options/adapter_chooser.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AdapterDialog::AdapterDialog(const AppServices &services,
                             const QList<Adapter> &adapters,
                             bool mayChange,
                             QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(u"Select network card Tollbrook will work with"_s);
    auto *chooser = new AdapterChooser(services.prompt, adapters);
    const QString bound = BoundAdapter(services.settings).value_or(QString());
    chooser->SetCurrent(FindAdapter(adapters, bound) ? bound : QString());
    chooser->SetMayChange(mayChange);
    connect(chooser, &AdapterChooser::Picked, this, [&services](const Adapter &adapter) {
        BindAdapter(services.settings, adapter);
    });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setObjectName(u"close"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(chooser);
    column->addWidget(buttons);
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) * 3 / 2);
}

void OpenAdapterBinding(const AppServices &services, QWidget *parent)
{
    const auto mayChange = AdapterMayChange(services.control, services.prompt);
    if (mayChange) {
        AdapterDialog(services, SystemAdapters(), *mayChange, parent).exec();
    }
}
