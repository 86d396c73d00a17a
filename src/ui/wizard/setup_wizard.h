// The setup wizard: seven pages that collect what the accounting service cannot work without.
#pragma once

#include "admin/setup.h"
#include "startup/app_services.h"

#include <QWizard>

class CSetupWizard : public QWizard
{
    Q_OBJECT

public:
    // Edits `setup` in place. `adapters` are the machine's own, whose networks are suggested.
    CSetupWizard(Prompt &prompt,
                 NetworkSetup &setup,
                 const QList<Adapter> &adapters,
                 QWidget *parent);

private:
    void Follow(int page);

    NetworkSetup &setup;
    int shown = -1;
};

// Runs the wizard on what the store and the database hold; Finish writes everything back, anything
// else nothing. True after Finish.
bool RunSetupWizard(const AppServices &services, QWidget *parent);
