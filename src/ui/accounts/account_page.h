// The account pages of the property sheets. They are made with their sheet and not shown in it.
#pragma once

#include "access/staged_account.h"
#include "accounts/credit_list.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

class CreditTable;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

// What a user's and a group's page have in common. The page stages at most one new credit and marks
// credits to be closed; who opened the sheet writes both with ApplyStagedAccount on its OK.
class AccountPage : public Page
{
    Q_OBJECT

public:
    AccountPage(const AppServices &services,
                const Owner &owner,
                StagedAccount &staged,
                QWidget *parent);

    [[nodiscard]] QString Title() const override;
    void Load() override; // reads the owner's mode, on which the columns depend
    void Activate() override; // reads the credits

    // What is left of the open pre-paid credits as they were when the page became active.
    [[nodiscard]] Megabytes Balance() const { return credits.balance; }

private:
    void BuildButtons(QVBoxLayout &layout);
    void ShowRows();
    void AddCredit();
    void DeleteSelected();
    void CloseSelected();
    [[nodiscard]] ListedCredit *Selected();
    void SetStatus(ListedCredit &row, CreditStatus status);

    const AppServices &services;
    Owner owner;
    StagedAccount &staged;
    AccountingMode ownerMode = AccountingMode::NoControl;
    CreditList credits; // the staged one last
    CreditTable *table = nullptr;
    QPushButton *add = nullptr;
    QLineEdit *balance = nullptr;
};

class CAdministratorUserPAcc : public AccountPage
{
    Q_OBJECT

public:
    CAdministratorUserPAcc(const AppServices &services,
                           UserId userId,
                           StagedAccount &staged,
                           QWidget *parent = nullptr);
};

class CAdministratorGroupPAcc : public AccountPage
{
    Q_OBJECT

public:
    CAdministratorGroupPAcc(const AppServices &services,
                            GroupId groupId,
                            StagedAccount &staged,
                            QWidget *parent = nullptr);
};
