// "Access" of a user and of a group: accounting mode, block and authentication.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

class AccessTypeBox;
class BlockBox;
class QCheckBox;
class WhyLines;

// A change of the access type drops what the sheet staged of the account.
class CAdministratorUserPAccess : public Page
{
    Q_OBJECT

public:
    CAdministratorUserPAccess(const AppServices &services,
                              UserRecord &record,
                              QWidget *parent = nullptr);

    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Activate() override; // reads why access is as it is
    [[nodiscard]] bool Leave() override; // not while "Corporate" stands without an option
    void Collect() override;

private:
    void StageMode();

    const AppServices &services;
    UserRecord &record;
    AccessTypeBox *type;
    BlockBox *block;
    QCheckBox *authentication;
    WhyLines *why; // as it stands in the database
};

class CAdministratorGroupPAccess : public Page
{
    Q_OBJECT

public:
    explicit CAdministratorGroupPAccess(GroupRecord &record, QWidget *parent = nullptr);

    [[nodiscard]] QString Title() const override;
    void Load() override;
    void Collect() override;

private:
    void StageMode();

    GroupRecord &record;
    AccessTypeBox *type;
    BlockBox *block;
};
