#include "ui/options/protocols_page.h"

#include "ui/common/controls.h"
#include "ui/options/monitor_mode_box.h"
#include "ui/options/monitored_dialog.h"
#include "ui/options/protocol_editor.h"
#include "ui/options/settings_window.h"

#include <QGridLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ProtocolsPage::ProtocolsPage(Prompt &messages,
                             std::optional<ProtocolTable> &edited,
                             qint32 &monitorMode)
    : prompt(messages)
    , table(edited ? *edited : unread)
    , mode(monitorMode)
    , protocols(new ProtocolList(
          prompt,
          table,
          ProtocolEntry::Dialog,
          {tr("Available protocols"), {}, tr("Add protocol..."), tr("Remove protocol")}))
    , ports(new PortList(prompt,
                         table,
                         ProtocolEntry::Dialog,
                         {tr("Ports for"), {}, tr("Add port..."), tr("Remove port")}))
    , setUp(MakeButton<QPushButton>(tr("Setup monitored protocols"), "setUpMonitored"))
{
    auto *modes = new MonitorModeBox(mode);
    auto *controls = new QWidget;
    auto *grid = new QGridLayout(controls);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(modes, 0, 0, 1, 2);
    grid->addWidget(protocols, 1, 0);
    grid->addWidget(ports, 1, 1);
    grid->addWidget(setUp, 2, 0, Qt::AlignLeft);
    grid->setRowStretch(1, 1);
    auto *column = new QVBoxLayout(this);
    if (!edited) {
        column->addWidget(UnreadProtocolsNote());
        controls->setEnabled(false);
    }
    column->addWidget(controls, 1);
    setUp->setAutoDefault(false);
    connect(modes, &MonitorModeBox::Changed, this, &ProtocolsPage::Follow);
    connect(protocols, &ProtocolList::Changed, this, &ProtocolsPage::Follow);
    connect(setUp, &QPushButton::clicked, this, &ProtocolsPage::SetUpMonitored);
    Follow();
}

QString ProtocolsPage::Title() const
{
    return tr("Protocols");
}

void ProtocolsPage::Follow()
{
    const bool usesList = monitor_mode::UsesList(mode);
    protocols->setEnabled(usesList);
    setUp->setEnabled(usesList);
    ports->Show(protocols->Selected());
    ports->setEnabled(usesList);
}

void ProtocolsPage::SetUpMonitored()
{
    MonitoredDialog(prompt, table, mode, this).exec();
}
