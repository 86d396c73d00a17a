// "Unmonitored users": lists them and brings chosen ones back under monitoring.
#pragma once

#include "admin/unmonitored.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

#include <vector>

class QListWidget;
class QPushButton;

class UnmonitoredDialog : public Dialog
{
    Q_OBJECT

public:
    // Lists `unmonitored`, users as they were read.
    UnmonitoredDialog(const AppServices &services,
                      std::vector<UnmonitoredUser> unmonitored,
                      QWidget *parent);

private:
    void MonitorSelected();

    const AppServices &services;
    QListWidget *list;
    QPushButton *monitor;
    std::vector<UnmonitoredUser> users; // row for row
};

// Nothing opens when the users could not be read, which is told. The users list is to be refilled
// afterwards.
void OpenUnmonitored(const AppServices &services, QWidget *parent);
