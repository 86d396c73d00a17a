// "General" of a group: its name, its description and its members.
#pragma once

#include "access/group_record.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;
class TextField;

class CAdministratorGroupPPage : public Page
{
    Q_OBJECT

public:
    CAdministratorGroupPPage(const AppServices &services,
                             GroupRecord &record,
                             QWidget *parent = nullptr);

    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Activate() override;
    void Collect() override;

private:
    QWidget *MakeMembers();
    void ShowMembers();
    void AddMembers();
    void Add(const std::vector<Member> &chosen);
    void RemoveMember();

    const AppServices &services;
    GroupRecord &record;
    TextField *name;
    TextField *description;
    QLineEdit *mode;
    QListWidget *members;
    QPushButton *remove;
};
