// "Monitored protocols": every protocol with a check box.
#pragma once

#include "admin/protocol_table.h"
#include "base/prompt.h"
#include "ui/common/dialog.h"

class QListWidget;

class MonitoredDialog : public Dialog
{
    Q_OBJECT

public:
    // Writes into `table` on OK only. `mode` is the "monitorprotmode" of the page.
    MonitoredDialog(Prompt &prompt, ProtocolTable &table, int mode, QWidget *parent);

    // Stays open when nothing is checked and the administrator then says No.
    void accept() override;

private:
    Prompt &prompt;
    ProtocolTable &table;
    int mode;
    QListWidget *list;
};
