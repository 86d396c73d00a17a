// The setup wizard: seven pages that collect what the accounting service cannot work without.
#pragma once

#include "admin/setup.h"
#include "startup/app_services.h"

#include <QWizard>

#include <functional>

class CSetupWizard : public QWizard
{
    Q_OBJECT

public:
    // Edits `setup` in place. `adapters` are the machine's own, whose networks are suggested.
    CSetupWizard(Prompt &prompt,
                 NetworkSetup &setup,
                 const QList<Adapter> &adapters,
                 QWidget *parent);

    // Stores what was collected, on Finish. When it was not stored, which `apply` tells itself, the
    // wizard stays open with everything that was entered.
    void SetApply(std::function<bool()> newApply);

    void accept() override;

private:
    void ArrangeKeyboard();
    void Follow(int page);

    NetworkSetup &setup;
    ProtocolTable unreadProtocols; // in place of those that could not be read
    std::function<bool()> apply;
    int shown = -1;
};

// Runs the wizard on what the store and the database hold; what of it could not be read is told first, and
// stays as it is. Finish writes everything back, anything else nothing; while something could not be
// written, which is told, the wizard stays open. True when everything was written.
bool RunSetupWizard(const AppServices &services, QWidget *parent);
