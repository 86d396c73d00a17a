// "Create login", for a new login and for the properties of one that exists.
#pragma once

#include "admin/login_table.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class IpAddressField;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class TextField;

class CreateLoginDialog : public Dialog
{
    Q_OBJECT

public:
    // `index` is the place of the login to edit; nothing makes a new one. The table takes the login
    // over on OK.
    CreateLoginDialog(const AppServices &services,
                      LoginTable &table,
                      std::optional<size_t> index,
                      QWidget *parent);

    void accept() override;

private:
    void Build();
    QWidget *LoginBox();
    QWidget *UserBox();
    QWidget *LimitBox();
    void Show(const Login &login);
    void EnableControls();
    void Browse();
    void MarkPassword();
    [[nodiscard]] LoginEntry Entry() const;

    const AppServices &services;
    LoginTable &table;
    std::optional<size_t> index;
    Login login; // the bound user is kept here

    TextField *name = nullptr;
    QLineEdit *password = nullptr;
    QLineEdit *retyped = nullptr;
    QLabel *passwordNote = nullptr; // while one is too long
    QCheckBox *bindToUser = nullptr;
    QLineEdit *user = nullptr;
    QPushButton *browse = nullptr;
    QRadioButton *noLimit = nullptr;
    QRadioButton *byIp = nullptr;
    QRadioButton *byMac = nullptr;
    IpAddressField *ip = nullptr;
    TextField *mac = nullptr;
    QCheckBox *allowStats = nullptr;
    QCheckBox *guest = nullptr;
};
