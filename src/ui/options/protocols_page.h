// Which protocols are monitored, and the ports that make each of them.
#pragma once

#include "admin/protocol_table.h"
#include "base/prompt.h"
#include "ui/common/page.h"

#include <optional>

class MonitorModeBox;
class PortList;
class ProtocolList;
class QPushButton;

class ProtocolsPage : public Page
{
    Q_OBJECT

public:
    // Edits both in place. Without a table, which could not be read, nothing can be edited and the page
    // says so.
    ProtocolsPage(Prompt &prompt, std::optional<ProtocolTable> &table, qint32 &monitorMode);

    [[nodiscard]] QString Title() const override;

private:
    void Follow();
    void SetUpMonitored();

    Prompt &prompt;
    ProtocolTable unread; // in place of one that could not be read
    ProtocolTable &table;
    qint32 &mode;
    ProtocolList *protocols;
    PortList *ports;
    QPushButton *setUp;
};
