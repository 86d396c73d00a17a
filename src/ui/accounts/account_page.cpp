#include "ui/accounts/account_page.h"

#include "base/amount_text.h"
#include "db/value_codes.h"
#include "ui/accounts/credit_dialogs.h"
#include "ui/accounts/credit_table.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

AccountPage::AccountPage(const AppServices &appServices,
                         const Owner &accountOwner,
                         StagedAccount &record,
                         QWidget *parent)
    : Page(parent)
    , services(appServices)
    , owner(accountOwner)
    , staged(record)
{ }

QString AccountPage::Title() const
{
    return u"Account"_s;
}

void AccountPage::Load()
{
    ownerMode = ModeOf(owner).value_or(AccountingMode::NoControl);
    table = new CreditTable(CreditColumns(ownerMode), u"No credits"_s, this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(table, 1);
    BuildButtons(*layout);
}

void AccountPage::BuildButtons(QVBoxLayout &layout)
{
    add = MakeButton<QPushButton>(u"&Add"_s, "add");
    auto *remove = MakeButton<QPushButton>(u"&Delete"_s, "delete");
    auto *close = MakeButton<QPushButton>(u"&Close"_s, "close");
    connect(add, &QPushButton::clicked, this, &AccountPage::AddCredit);
    connect(remove, &QPushButton::clicked, this, &AccountPage::DeleteSelected);
    connect(close, &QPushButton::clicked, this, &AccountPage::CloseSelected);
    balance = ShownValue("balance");
    auto *label = LabelFor(u"&Balance, Mb:"_s, *balance);
    auto *line = new QHBoxLayout;
    line->addWidget(add);
    line->addWidget(remove);
    line->addWidget(close);
    line->addStretch();
    line->addWidget(label);
    line->addWidget(balance);
    layout.addLayout(line);
    balance->setVisible(ownerMode == AccountingMode::Provider);
    label->setVisible(ownerMode == AccountingMode::Provider);
}

void AccountPage::Activate()
{
    credits = ReadCredits(owner, ownerMode, services.settings);
    for (ListedCredit &row : credits.rows) {
        if (std::find(staged.closed.begin(), staged.closed.end(), row.billId)
            != staged.closed.end()) {
            SetStatus(row, CreditStatus::Expired);
        }
    }
    for (const StagedCredit &credit : staged.credits) {
        credits.rows.push_back(StagedRow(credit, ownerMode, services.settings));
    }
    ShowRows();
}

void AccountPage::ShowRows()
{
    QList<QStringList> lines;
    for (const ListedCredit &row : credits.rows) {
        lines << row.cells;
    }
    table->SetRows(lines);
    add->setEnabled(staged.credits.empty());
    balance->setText(AmountText(credits.balance.value));
}

ListedCredit *AccountPage::Selected()
{
    const int row = table->SelectedRow();
    return row < 0 ? nullptr : &credits.rows[static_cast<std::size_t>(row)];
}

void AccountPage::SetStatus(ListedCredit &row, CreditStatus status)
{
    row.status = status;
    row.cells[StatusCell(ownerMode)] = StatusText(status);
}

void AccountPage::AddCredit()
{
    if (auto credit = AskForCredit(services, owner, ownerMode, this)) {
        credits.rows.push_back(StagedRow(*credit, ownerMode, services.settings));
        staged.credits = {*std::move(credit)};
        ShowRows();
        table->Select(static_cast<int>(credits.rows.size()) - 1);
    }
}

void AccountPage::DeleteSelected()
{
    const ListedCredit *row = Selected();
    if (row == nullptr) {
        services.prompt.Tell(u"Select the item to delete"_s);
    } else if (row->status != CreditStatus::New) {
        services.prompt.Tell(u"Cannot delete Expired or Active account"_s);
    } else {
        credits.rows.pop_back();
        staged.credits.clear();
        ShowRows();
    }
}

void AccountPage::CloseSelected()
{
    ListedCredit *row = Selected();
    if (row == nullptr) {
        services.prompt.Tell(u"Select the item to close"_s);
    } else if (row->status != CreditStatus::Active) {
        services.prompt.Tell(u"Cannot close Expired or New account"_s);
    } else if (services.prompt.Ask(u"You are about to close this credit. Continue?"_s)) {
        SetStatus(*row, CreditStatus::Expired);
        staged.closed.push_back(row->billId);
        const int selected = table->SelectedRow();
        ShowRows();
        table->Select(selected);
    }
}

CAdministratorUserPAcc::CAdministratorUserPAcc(const AppServices &appServices,
                                               UserId userId,
                                               StagedAccount &record,
                                               QWidget *parent)
    : AccountPage(appServices, userId, record, parent)
{ }

CAdministratorGroupPAcc::CAdministratorGroupPAcc(const AppServices &appServices,
                                                 GroupId groupId,
                                                 StagedAccount &record,
                                                 QWidget *parent)
    : AccountPage(appServices, groupId, record, parent)
{ }
