#include "ui/wizard/setup_wizard.h"

#include "ui/wizard/setup_wizard_pages.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

CSetupWizard::CSetupWizard(Prompt &prompt,
                           NetworkSetup &edited,
                           const QList<Adapter> &adapters,
                           QWidget *parent)
    : QWizard(parent)
    , setup(edited)
{
    setObjectName(u"setupWizard"_s);
    setWizardStyle(QWizard::ModernStyle);
    setOption(QWizard::NoBackButtonOnStartPage);
    const QList<QWizardPage *> pages {new CSetupWizardDlg1,
                                      new CSetupWizardDlg2(prompt, setup, adapters),
                                      new CSetupWizardDlg3(prompt, setup),
                                      new CSetupWizardDlg4(prompt, setup),
                                      new CSetupWizardDlg5(prompt, setup),
                                      new CSetupWizardDlg6(setup),
                                      new CSetupWizardDlg7};
    for (QWizardPage *page : pages) {
        addPage(page);
    }
    const std::pair<WizardButton, const char *> names[] = {{BackButton, "back"},
                                                           {NextButton, "next"},
                                                           {FinishButton, "finish"},
                                                           {CancelButton, "cancel"}};
    for (const auto &[which, name] : names) {
        button(which)->setObjectName(QLatin1String(name));
    }
    connect(this, &QWizard::currentIdChanged, this, &CSetupWizard::Follow);
}

// The window is called as its page. Back from the user binds leads past the ports when no list of protocols is used. Kept: Next shows
// them all the same.
void CSetupWizard::Follow(int page)
{
    const int previous = std::exchange(shown, page);
    if (currentPage()) {
        setWindowTitle(currentPage()->title());
    }
    if (page == wizard_page::kPorts && previous == wizard_page::kUserBinds
        && !monitor_mode::UsesList(setup.monitorMode)) {
        back();
    }
}

bool RunSetupWizard(const AppServices &services, QWidget *parent)
{
    NetworkSetup setup = LoadSetup(services.settings);
    CSetupWizard wizard(services.prompt, setup, SystemAdapters(), parent);
    if (wizard.exec() != QDialog::Accepted) {
        return false;
    }
    SaveSetup(setup, services.settings);
    return true;
}
