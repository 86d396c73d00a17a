// "Limits" of a user and of a group: period, limits and price, as far as the access type has them.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

// What both pages have in common. What the administrator changed stays as it is when the page
// becomes active again; all else is read anew, and stays too when it cannot be read.
class LimitsPage : public Page
{
    Q_OBJECT

public:
    [[nodiscard]] QString Title() const override;
    void Activate() override;

protected:
    // `mode` is the one that the access page stages.
    LimitsPage(const AppServices &services,
               const Owner &owner,
               const AccountingMode &mode,
               LimitsDraft &draft,
               QWidget *parent);

private:
    struct Line
    {
        QLineEdit *value = nullptr;
        QPushButton *change = nullptr;

        void Enable(bool enabled) const;
    };

    [[nodiscard]] static Line
    MakeLine(const char *valueName, const char *buttonName, const QString &says);
    QGroupBox *MakeLimits();
    QGroupBox *MakeRates();
    void ReadStored();
    void ShowStaged();
    void ShowPrice(bool ownPrice);
    void ChangePeriod();
    void ChangeTraffic();
    void ChangeTime();
    void ChangeRate();
    void UseGlobal(bool global);

    const AppServices &services;
    Owner owner;
    const AccountingMode &mode;
    LimitsDraft &draft;
    Line period;
    Line traffic;
    Line time; // empty for a group
    Line rate;
    QCheckBox *global;
};

class CAdministratorUserPLimits : public LimitsPage
{
    Q_OBJECT

public:
    CAdministratorUserPLimits(const AppServices &services,
                              UserRecord &record,
                              QWidget *parent = nullptr);
};

class CAdministratorGroupPLimits : public LimitsPage
{
    Q_OBJECT

public:
    CAdministratorGroupPLimits(const AppServices &services,
                               GroupRecord &record,
                               QWidget *parent = nullptr);
};
