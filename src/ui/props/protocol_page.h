// "Protocols" of a user and of a group: the protocols that are allowed or disallowed.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "ui/common/page.h"

class QListWidget;
class QRadioButton;

class ProtocolPage : public Page
{
    Q_OBJECT

public:
    [[nodiscard]] QString Title() const override;
    void Load() override;

protected:
    ProtocolPage(ProtocolChoice &choice, QWidget *parent);

private:
    QWidget *MakeLists();

    // Moves the chosen protocol of one list to the other; nothing happens when none is chosen.
    void Move(QListWidget &from, QListWidget &to, bool selected);

    ProtocolChoice &choice;
    QRadioButton *allow;
    QRadioButton *disallow;
    QListWidget *selectedList;
    QListWidget *availableList;
};

class CAdministratorUserPProtocol : public ProtocolPage
{
    Q_OBJECT

public:
    explicit CAdministratorUserPProtocol(UserRecord &record, QWidget *parent = nullptr);
};

// Kept: made with the group's sheet and never shown there, yet its state is stored.
class CAdministratorGroupPProtocols : public ProtocolPage
{
    Q_OBJECT

public:
    explicit CAdministratorGroupPProtocols(GroupRecord &record, QWidget *parent = nullptr);
};
