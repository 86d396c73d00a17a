// "General" of a user: names, addresses, group and kind.
#pragma once

#include "access/user_record.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class TextField;

class CAdministratorUserPPage : public Page
{
    Q_OBJECT

public:
    CAdministratorUserPPage(const AppServices &services,
                            UserRecord &record,
                            QWidget *parent = nullptr);

    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Collect() override;

private:
    void AddFacts(QFormLayout &form);
    void AddAddress(QFormLayout &form,
                    const QString &label,
                    QLineEdit *field,
                    QLabel *changed,
                    QPushButton *button);
    void ShowDraft();
    void ChangeIp();
    void ChangeMac();
    void ChangeGroup();

    const AppServices &services;
    UserRecord &record;
    TextField *fullName;
    TextField *description;
    QLineEdit *userName;
    QLineEdit *login;
    QLineEdit *workstation;
    QLineEdit *kind;
    QLineEdit *ipAddress;
    QLineEdit *macAddress;
    QLineEdit *group;
    QLabel *ipChanged;
    QLabel *macChanged;
};
