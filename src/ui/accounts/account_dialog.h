// The "Account" dialog of a user or a group: the history of its credits, new ones, close marks.
#pragma once

#include "access/staged_account.h"
#include "accounts/currency.h"
#include "accounts/history.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

#include <optional>
#include <vector>

class CreditTable;
class QCheckBox;
class QComboBox;
class QLabel;

// What is read before the dialog opens.
struct OpenedAccount
{
    QString ownerName;
    AccountingMode ownerMode = AccountingMode::NoControl;
    std::vector<HistoryRow> history; // all records
};

// Nothing when there is no such user or group any more.
[[nodiscard]] Result<std::optional<OpenedAccount>> ReadAccount(const Owner &owner);

// What is added and closed here is written on OK and not before; Cancel drops it. The dialog stays open
// with all of it when it could not be written.
class AccountDialog : public Dialog
{
    Q_OBJECT

public:
    AccountDialog(const AppServices &services,
                  const Owner &owner,
                  OpenedAccount account,
                  const Currency &currency,
                  QWidget *parent);

    void accept() override;

private:
    void BuildControls(const QString &ownerName);
    [[nodiscard]] QWidget *FilterLine();
    [[nodiscard]] QWidget *ButtonLine();

    // Reads the credits that the filter now selects; when they cannot be read, the list keeps those
    // that it shows, and says so.
    void Refill();
    void ListRows();
    void ShowRows();
    void AddCredit();
    void CloseSelected();
    void DeleteSelected();
    [[nodiscard]] HistoryRow *Selected();
    [[nodiscard]] bool Write();

    const AppServices &services;
    const Owner owner;
    const AccountingMode ownerMode;
    const Currency currency;
    StagedAccount staged;
    std::vector<HistoryRow> stored; // as they were read
    std::vector<HistoryRow> rows; // as listed: the stored credits, then the staged ones
    CreditTable *table;
    QLabel *unread;
    QComboBox *period;
    QCheckBox *openOnly;
};
