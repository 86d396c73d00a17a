// "Select network card Tollbrook will work with": binds the accounting service to an adapter.
#pragma once

#include "admin/adapters.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class AdapterChooser;

class AdapterDialog : public Dialog
{
    Q_OBJECT

public:
    // Without `mayChange` it only shows. A choice is written at once; one that could not be written,
    // which is told, is none. Settings that could not be read are told first.
    AdapterDialog(const AppServices &services,
                  const QList<Adapter> &adapters,
                  bool mayChange,
                  QWidget *parent);

private:
    void ShowBound(const QList<Adapter> &adapters);
    void Bind(const Adapter &adapter);

    const AppServices &services;
    AdapterChooser *chooser;
    QString bound; // the description that is shown
};

// The command: the service must be there, and stopped for anything to be changed.
void OpenAdapterBinding(const AppServices &services, QWidget *parent);
