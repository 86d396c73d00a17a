#include "ui/wizard/setup_wizard_pages.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/options/bind_page.h"
#include "ui/options/editable_list.h"
#include "ui/options/exclusion_editor.h"
#include "ui/options/monitor_mode_box.h"
#include "ui/options/protocol_editor.h"
#include "ui/options/range_editor.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *Paragraph(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

} // namespace

bool EntryPage::validatePage()
{
    return AddWhatWasEntered(*this);
}

CSetupWizardDlg1::CSetupWizardDlg1()
{
    setTitle(tr("Setup Wizard - Welcome"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(Paragraph(tr("Welcome to Tollbrook setup wizard!")));
    column->addWidget(Paragraph(tr(
        "It asks for the local networks, the proxies and gateways in them, the protocols to monitor "
        "and how users are told apart. Nothing is written before you press Finish.")));
    column->addStretch();
}

CSetupWizardDlg2::CSetupWizardDlg2(Prompt &messages,
                                   NetworkSetup &edited,
                                   const QList<Adapter> &adapters)
    : prompt(messages)
    , setup(edited)
    , ranges(new RangeEditor(prompt,
                             setup.ranges,
                             RangeEditor::Entry::Fields,
                             {tr("Local ranges"), tr("Add"), tr("Delete")}))
{
    setTitle(tr("Setup Wizard - Local IP Addresses"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(ranges);
    if (setup.ranges.isEmpty()) {
        column->addWidget(SuggestionBox(adapters));
    }
}

QWidget *CSetupWizardDlg2::SuggestionBox(const QList<Adapter> &adapters)
{
    auto *box = new QGroupBox(tr("Networks of this machine"));
    auto *column = new QVBoxLayout(box);
    const QList<AddressRange> suggested = SuggestedRanges(adapters);
    for (const AddressRange &range : suggested) {
        const QString text =
            tr("Add %1 / %2").arg(DottedText(range.network), DottedText(range.mask));
        auto *add = MakeButton<QPushButton>(text, "suggestion");
        column->addWidget(add, 0, Qt::AlignLeft);
        connect(add, &QPushButton::clicked, this, [this, add, range] {
            if (const auto problem = CheckRange(setup.ranges, range.network, range.mask)) {
                Complain(prompt, TextOf(*problem));
                return;
            }
            ranges->Add(range);
            add->setEnabled(false);
        });
    }
    box->setHidden(suggested.isEmpty());
    return box;
}

CSetupWizardDlg3::CSetupWizardDlg3(Prompt &prompt, NetworkSetup &setup)
{
    setTitle(tr("Setup Wizard - Proxy and gateway"));
    auto *uses = MakeButton<QCheckBox>(tr("I use proxy server or gateway"), "usesProxy");
    auto *proxies = new ExclusionEditor(
        prompt,
        setup.proxies,
        kMaxWizardExclusions,
        {tr("Proxy or gateway addresses"), tr("Enter IP address"), tr("Add"), tr("Delete")});
    uses->setChecked(setup.usesProxy);
    proxies->setEnabled(setup.usesProxy);
    connect(uses, &QCheckBox::toggled, this, [&setup, proxies](bool checked) {
        setup.usesProxy = checked;
        proxies->setEnabled(checked);
    });
    auto *column = new QVBoxLayout(this);
    column->addWidget(uses);
    column->addWidget(proxies);
}

CSetupWizardDlg4::CSetupWizardDlg4(Prompt &prompt, NetworkSetup &edited, ProtocolTable &table)
    : setup(edited)
    , protocols(new ProtocolList(
          prompt,
          table,
          ProtocolEntry::Field,
          {tr("Protocol titles"), tr("Enter protocol title, e.g. FTP"), tr("Add"), tr("Delete")}))
{
    setTitle(tr("Setup Wizard - Monitored protocols"));
    auto *modes = new MonitorModeBox(setup.monitorMode);
    connect(modes, &MonitorModeBox::Changed, this, &CSetupWizardDlg4::Follow);
    auto *column = new QVBoxLayout(this);
    column->addWidget(modes);
    column->addWidget(protocols);
    Follow();
}

void CSetupWizardDlg4::Follow()
{
    protocols->setEnabled(monitor_mode::UsesList(setup.monitorMode));
}

CSetupWizardDlg5::CSetupWizardDlg5(Prompt &prompt, ProtocolTable &edited)
    : table(edited)
    , protocols(new QListWidget)
    , ports(new PortList(prompt,
                         table,
                         ProtocolEntry::Field,
                         {tr("Ports for"), tr("Enter TCP/IP port"), tr("Add"), tr("Delete")}))
{
    setTitle(tr("Setup Wizard - TCP/IP ports"));
    protocols->setObjectName(u"portProtocols"_s);
    auto *left = new QVBoxLayout;
    left->addWidget(LabelFor(tr("Protocol titles"), *protocols));
    left->addWidget(protocols);
    auto *row = new QHBoxLayout;
    row->addLayout(left);
    row->addWidget(ports);
    (new QVBoxLayout(this))->addLayout(row);
    connect(protocols, &QListWidget::currentRowChanged, this, &CSetupWizardDlg5::Follow);
}

void CSetupWizardDlg5::initializePage()
{
    protocols->clear();
    for (const Protocol &protocol : table.Protocols()) {
        protocols->addItem(protocol.name);
    }
    protocols->setCurrentRow(0);
    Follow();
}

void CSetupWizardDlg5::Follow()
{
    ports->Show(protocols->currentRow());
}

CSetupWizardDlg6::CSetupWizardDlg6(NetworkSetup &setup)
{
    setTitle(tr("Setup Wizard - User binds"));
    auto *box = new QGroupBox(tr("Identify users with:"));
    auto *inBox = new QVBoxLayout(box);
    inBox->addWidget(new IdentModeBox(setup.identMode,
                                      tr("NT/2000 username (requires Username Agent installed)")));
    auto *column = new QVBoxLayout(this);
    column->addWidget(box);
    column->addStretch();
}

CSetupWizardDlg7::CSetupWizardDlg7()
{
    setTitle(tr("Setup Wizard - Finish"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(Paragraph(
        tr("The setup is complete. Press Finish to save it, then you should restart the service so "
           "that new parameters are enforced.")));
    column->addStretch();
}
