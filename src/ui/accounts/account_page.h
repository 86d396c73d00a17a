// The account pages of the property sheets. They are made with their sheet and not shown in it.
#pragma once

#include "access/staged_account.h"
#include "accounts/credit_list.h"
#include "accounts/currency.h"
#include "startup/app_services.h"
#include "ui/common/page.h"

#include <vector>

class CreditTable;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

// What a user's and a group's page have in common. The page stages at most one new credit and marks
// credits to be closed; who opened the sheet writes both on its OK.
class AccountPage : public Page
{
    Q_OBJECT

public:
    // The columns are those of `ownerMode`, which the owner has as the sheet opens.
    AccountPage(const AppServices &services,
                const Owner &owner,
                AccountingMode ownerMode,
                StagedAccount &staged,
                QWidget *parent);

    [[nodiscard]] QString Title() const override;
    void Load() override;

    // Reads the credits; when they cannot be read, the list keeps those that it shows, and says so.
    void Activate() override;

    // What is left of the open pre-paid credits as they were when they were last read.
    [[nodiscard]] Megabytes Balance() const { return stored.balance; }

private:
    void BuildButtons(QVBoxLayout &layout);
    [[nodiscard]] bool Read();
    void ListRows();
    void ShowRows();
    void AddCredit();
    void DeleteSelected();
    void CloseSelected();
    [[nodiscard]] ListedCredit *Selected();
    void SetStatus(ListedCredit &row, CreditStatus status);

    const AppServices &services;
    Owner owner;
    StagedAccount &staged;
    const AccountingMode ownerMode;
    Currency currency; // as it was when the credits were last read
    CreditList stored; // as they were read
    std::vector<ListedCredit> rows; // as listed: the stored credits, then the staged one
    CreditTable *table = nullptr;
    QLabel *unread = nullptr;
    QPushButton *add = nullptr;
    QLineEdit *balance = nullptr;
};

class CAdministratorUserPAcc : public AccountPage
{
    Q_OBJECT

public:
    CAdministratorUserPAcc(const AppServices &services,
                           UserId userId,
                           AccountingMode ownerMode,
                           StagedAccount &staged,
                           QWidget *parent = nullptr);
};

class CAdministratorGroupPAcc : public AccountPage
{
    Q_OBJECT

public:
    CAdministratorGroupPAcc(const AppServices &services,
                            GroupId groupId,
                            AccountingMode ownerMode,
                            StagedAccount &staged,
                            QWidget *parent = nullptr);
};
