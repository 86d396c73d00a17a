// "New user": a single user, by the rules of an import of one row.
#pragma once

#include "access/group_list.h"
#include "exchange/one_user.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class IpAddressField;
class QComboBox;
class QWidget;
class TextField;

class NewUserDialog : public Dialog
{
    Q_OBJECT

public:
    NewUserDialog(const AppServices &services,
                  const QList<NamedGroup> &groups,
                  ImportContext context,
                  QWidget *parent);

    // Adds the user. Stays open when that was refused or failed.
    void accept() override;

private:
    [[nodiscard]] bool IsComplete();
    [[nodiscard]] NewUser Entered() const;

    const AppServices &services;
    const ImportContext context;
    TextField *name;
    QComboBox *group;
    IpAddressField *ip;
    TextField *mac;
};

// Nothing opens when the groups or the settings could not be read, which is told. The lists are to be
// refilled afterwards.
void OpenNewUser(const AppServices &services, QWidget *parent);
