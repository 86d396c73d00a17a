// The "Account" dialog of a user or a group: the history of its credits, new ones, close marks.
#pragma once

#include "access/staged_account.h"
#include "accounts/history.h"
#include "startup/app_services.h"

#include <QDialog>

class CreditTable;
class QCheckBox;
class QComboBox;

// What is added and closed here is written on OK and not before; Cancel drops it.
class AccountDialog : public QDialog
{
    Q_OBJECT

public:
    AccountDialog(const AppServices &services,
                  const Owner &owner,
                  AccountingMode ownerMode,
                  QWidget *parent);

    void accept() override;

private:
    void BuildControls();
    [[nodiscard]] QWidget *FilterLine();
    [[nodiscard]] QWidget *ButtonLine();

    void Refill();
    void ShowRows();
    void AddCredit();
    void CloseSelected();
    void DeleteSelected();
    [[nodiscard]] HistoryRow *Selected();

    const AppServices &services;
    HistoryFilter filter;
    StagedAccount staged;
    std::vector<HistoryRow> rows; // as listed: the stored credits, then the staged ones
    CreditTable *table;
    QComboBox *period;
    QCheckBox *openOnly;
};
