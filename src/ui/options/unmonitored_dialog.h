// "Unmonitored users": lists them and brings chosen ones back under monitoring.
#pragma once

#include "admin/unmonitored.h"

#include <QDialog>

class QListWidget;
class QPushButton;

class UnmonitoredDialog : public QDialog
{
    Q_OBJECT

public:
    explicit UnmonitoredDialog(QWidget *parent);

private:
    void MonitorSelected();

    QListWidget *list;
    QPushButton *monitor;
    std::vector<UnmonitoredUser> users; // row for row
};

// The users list is to be refilled afterwards.
void OpenUnmonitored(QWidget *parent);
