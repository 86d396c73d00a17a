// The pages of the setup wizard. Each edits a part of the one draft as soon as it is changed.
#pragma once

#include "admin/setup.h"
#include "base/prompt.h"

#include <QWizardPage>

class ExclusionEditor;
class PortList;
class ProtocolList;
class QCheckBox;
class QListWidget;
class QVBoxLayout;
class RangeEditor;

// The pages' places, counted from 0.
namespace wizard_page {
constexpr int kProtocols = 3;
constexpr int kPorts = 4;
constexpr int kUserBinds = 5;
} // namespace wizard_page

// A page with fields whose contents are added to lists: Next adds what still stands in them.
class EntryPage : public QWizardPage
{
    Q_OBJECT

public:
    [[nodiscard]] bool validatePage() override;
};

// "Setup Wizard - Welcome"
class CSetupWizardDlg1 : public QWizardPage
{
    Q_OBJECT

public:
    CSetupWizardDlg1();
};

// "Setup Wizard - Local IP Addresses"
class CSetupWizardDlg2 : public EntryPage
{
    Q_OBJECT

public:
    // The networks of `adapters` are suggested while there are no ranges; one click adds one.
    CSetupWizardDlg2(Prompt &prompt, NetworkSetup &setup, const QList<Adapter> &adapters);

private:
    [[nodiscard]] QWidget *SuggestionBox(const QList<Adapter> &adapters);

    Prompt &prompt;
    NetworkSetup &setup;
    RangeEditor *ranges;
};

// "Setup Wizard - Proxy and gateway"
class CSetupWizardDlg3 : public EntryPage
{
    Q_OBJECT

public:
    CSetupWizardDlg3(Prompt &prompt, NetworkSetup &setup);
};

// "Setup Wizard - Monitored protocols"
class CSetupWizardDlg4 : public EntryPage
{
    Q_OBJECT

public:
    // Edits the mode of `setup` and the protocols, which stand in it unless they could not be read.
    CSetupWizardDlg4(Prompt &prompt, NetworkSetup &setup, ProtocolTable &table);

private:
    void Follow();

    NetworkSetup &setup;
    ProtocolList *protocols;
};

// "Setup Wizard - TCP/IP ports"
class CSetupWizardDlg5 : public EntryPage
{
    Q_OBJECT

public:
    CSetupWizardDlg5(Prompt &prompt, ProtocolTable &table);
    void initializePage() override;

private:
    void Follow();

    ProtocolTable &table;
    QListWidget *protocols;
    PortList *ports;
};

// "Setup Wizard - User binds"
class CSetupWizardDlg6 : public QWizardPage
{
    Q_OBJECT

public:
    explicit CSetupWizardDlg6(NetworkSetup &setup);
};

// "Setup Wizard - Finish"
class CSetupWizardDlg7 : public QWizardPage
{
    Q_OBJECT

public:
    CSetupWizardDlg7();
};
