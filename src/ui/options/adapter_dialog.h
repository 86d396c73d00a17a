// "Select network card Tollbrook will work with": binds the accounting service to an adapter.
#pragma once

#include "admin/adapters.h"
#include "startup/app_services.h"

#include <QDialog>

class AdapterDialog : public QDialog
{
    Q_OBJECT

public:
    // Without `mayChange` it only shows. A choice is written at once.
    AdapterDialog(const AppServices &services,
                  const QList<Adapter> &adapters,
                  bool mayChange,
                  QWidget *parent);
};

// The command: the service must be there, and stopped for anything to be changed.
void OpenAdapterBinding(const AppServices &services, QWidget *parent);
