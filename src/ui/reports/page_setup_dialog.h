// The site's paper for reports, and whose reports they are.
#pragma once

#include "reports/page_setup.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;
class TextField;

class PageSetupDialog : public Dialog
{
    Q_OBJECT

public:
    // Shows what the settings hold; OK writes it there, for every window and for tollbrook-report.
    explicit PageSetupDialog(const AppServices &services, QWidget *parent = nullptr);

    void accept() override;

private:
    void Fill(const PageSetup &setup);
    void Browse();
    void ShowLogo();
    [[nodiscard]] bool IsInOrder();
    [[nodiscard]] QString LogoFault() const;

    const AppServices &services;
    QComboBox *paper;
    QComboBox *turn;
    TextField *organisation;
    QPlainTextEdit *address;
    TextField *logo;
    QLabel *picture;
};
