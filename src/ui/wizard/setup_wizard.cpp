#include "ui/wizard/setup_wizard.h"

#include "admin/protocol_storage.h"
#include "ui/common/choice_keys.h"
#include "ui/common/keyboard_order.h"
#include "ui/options/settings_window.h"
#include "ui/wizard/setup_wizard_pages.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Nothing on the page can be edited, and it says why.
void NoteUnread(QWizardPage &page)
{
    for (auto *control : page.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        control->setEnabled(false);
    }
    static_cast<QBoxLayout *>(page.layout())->insertWidget(0, UnreadProtocolsNote());
}

} // namespace

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
    const bool areRead = setup.protocols.has_value();
    ProtocolTable &protocols = areRead ? *setup.protocols : unreadProtocols;
    const QList<QWizardPage *> pages {new CSetupWizardDlg1,
                                      new CSetupWizardDlg2(prompt, setup, adapters),
                                      new CSetupWizardDlg3(prompt, setup),
                                      new CSetupWizardDlg4(prompt, setup, protocols),
                                      new CSetupWizardDlg5(prompt, protocols),
                                      new CSetupWizardDlg6(setup),
                                      new CSetupWizardDlg7};
    for (QWizardPage *page : pages) {
        addPage(page);
    }
    if (!areRead) {
        NoteUnread(*pages[wizard_page::kProtocols]);
        NoteUnread(*pages[wizard_page::kPorts]);
    }
    const std::pair<WizardButton, const char *> names[] = {{BackButton, "back"},
                                                           {NextButton, "next"},
                                                           {FinishButton, "finish"},
                                                           {CancelButton, "cancel"}};
    for (const auto &[which, name] : names) {
        button(which)->setObjectName(QLatin1String(name));
    }
    ArrangeKeyboard();
    connect(this, &QWizard::currentIdChanged, this, &CSetupWizard::Follow);
}

// Each page is seen together with the wizard's own buttons.
void CSetupWizard::ArrangeKeyboard()
{
    QSet<QChar> taken;
    for (const WizardButton which : {BackButton, NextButton, FinishButton, CancelButton}) {
        taken.insert(MnemonicIn(buttonText(which)));
    }
    for (const int id : pageIds()) {
        SetTabOrderByReading(*page(id));
        GiveMnemonics(*page(id), taken);
        LetKeysChoose(*page(id));
    }
}

// The window is called as its page. Back from the user binds leads past the ports when no list of
// protocols is used. Kept: Next shows them all the same.
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

void CSetupWizard::SetApply(std::function<bool()> newApply)
{
    apply = std::move(newApply);
}

void CSetupWizard::accept()
{
    if (!apply || apply()) {
        QWizard::accept();
    }
}

bool RunSetupWizard(const AppServices &services, QWidget *parent)
{
    Edited<NetworkSetup> edited;
    edited.base = Told(services, LoadSetup(services.settings));
    edited.base.protocols = AwaitProtocols(services, parent, LoadWizardProtocols);
    edited.draft = edited.base;
    CSetupWizard wizard(services.prompt, edited.draft, SystemAdapters(), parent);
    wizard.SetApply([&] {
        return PerformSave(
            services, &wizard, [edited, &store = services.settings](const Answers &answers) {
                return SaveSetup(edited, store, answers);
            });
    });
    return wizard.exec() == QDialog::Accepted;
}
