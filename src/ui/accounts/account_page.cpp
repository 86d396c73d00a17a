#include "ui/accounts/account_page.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "base/amount_text.h"
#include "ui/accounts/credit_dialogs.h"
#include "ui/accounts/credit_table.h"
#include "ui/accounts/currency_now.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

AccountPage::AccountPage(const AppServices &appServices,
                         const Owner &accountOwner,
                         AccountingMode openedWith,
                         StagedAccount &record,
                         QWidget *parent)
    : Page(parent)
    , services(appServices)
    , owner(accountOwner)
    , staged(record)
    , ownerMode(openedWith)
{ }

QString AccountPage::Title() const
{
    return tr("Account");
}

void AccountPage::Load()
{
    table =
        new CreditTable(CreditColumns(ownerMode), CreditHeaders(ownerMode), tr("No credits"), this);
    unread = UnreadNote();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(table, 1);
    layout->addWidget(unread);
    BuildButtons(*layout);
}

void AccountPage::BuildButtons(QVBoxLayout &layout)
{
    add = MakeButton<QPushButton>(tr("&Add"), "add");
    auto *remove = MakeButton<QPushButton>(tr("&Delete"), "delete");
    auto *close = MakeButton<QPushButton>(tr("&Close"), "close");
    connect(add, &QPushButton::clicked, this, &AccountPage::AddCredit);
    connect(remove, &QPushButton::clicked, this, &AccountPage::DeleteSelected);
    connect(close, &QPushButton::clicked, this, &AccountPage::CloseSelected);
    balance = ShownValue("balance");
    auto *label = LabelFor(tr("&Balance, Mb:"), *balance);
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
    unread->setHidden(Read());
    ListRows();
    ShowRows();
}

bool AccountPage::Read()
{
    const auto now = CurrencyNow(services);
    if (!now) {
        return false;
    }
    auto read = Await(services,
                      this,
                      tr("Reading the account..."),
                      [whose = owner, mode = ownerMode, shown = *now] {
                          return ReadCredits(whose, mode, shown);
                      });
    if (!read) {
        TellUnread(services, tr("The credits could not be read."), read.error());
        return false;
    }
    currency = *now;
    stored = *std::move(read);
    return true;
}

void AccountPage::ListRows()
{
    rows = stored.rows;
    for (ListedCredit &row : rows) {
        if (std::find(staged.closed.begin(), staged.closed.end(), row.billId)
            != staged.closed.end()) {
            SetStatus(row, CreditStatus::Expired);
        }
    }
    for (const StagedCredit &credit : staged.credits) {
        rows.push_back(StagedRow(credit, ownerMode, currency));
    }
}

void AccountPage::ShowRows()
{
    QList<QStringList> lines;
    for (const ListedCredit &row : rows) {
        lines << row.cells;
    }
    table->SetRows(lines);
    add->setEnabled(staged.credits.empty());
    balance->setText(AmountText(stored.balance.value));
}

ListedCredit *AccountPage::Selected()
{
    const int row = table->SelectedRow();
    return row < 0 ? nullptr : &rows[static_cast<std::size_t>(row)];
}

void AccountPage::SetStatus(ListedCredit &row, CreditStatus status)
{
    row.status = status;
    row.cells[StatusCell(ownerMode)] = StatusText(status);
}

void AccountPage::AddCredit()
{
    const auto now = CurrencyNow(services);
    if (!now) {
        return;
    }
    if (auto credit = AskForCredit(services.prompt, *now, owner, ownerMode, this)) {
        rows.push_back(StagedRow(*credit, ownerMode, *now));
        staged.credits = {*std::move(credit)};
        ShowRows();
        table->Select(static_cast<int>(rows.size()) - 1);
    }
}

void AccountPage::DeleteSelected()
{
    const ListedCredit *row = Selected();
    if (row == nullptr) {
        services.prompt.Tell(tr("Select the item to delete"));
    } else if (row->status != CreditStatus::New) {
        services.prompt.Tell(tr("Cannot delete Expired or Active account"));
    } else {
        rows.pop_back();
        staged.credits.clear();
        ShowRows();
    }
}

void AccountPage::CloseSelected()
{
    ListedCredit *row = Selected();
    if (row == nullptr) {
        services.prompt.Tell(tr("Select the item to close"));
    } else if (row->status != CreditStatus::Active) {
        services.prompt.Tell(tr("Cannot close Expired or New account"));
    } else if (services.prompt.Ask(tr("You are about to close this credit. Continue?"))) {
        SetStatus(*row, CreditStatus::Expired);
        staged.closed.push_back(row->billId);
        const int selected = table->SelectedRow();
        ShowRows();
        table->Select(selected);
    }
}

CAdministratorUserPAcc::CAdministratorUserPAcc(const AppServices &appServices,
                                               UserId userId,
                                               AccountingMode openedWith,
                                               StagedAccount &record,
                                               QWidget *parent)
    : AccountPage(appServices, userId, openedWith, record, parent)
{ }

CAdministratorGroupPAcc::CAdministratorGroupPAcc(const AppServices &appServices,
                                                 GroupId groupId,
                                                 AccountingMode openedWith,
                                                 StagedAccount &record,
                                                 QWidget *parent)
    : AccountPage(appServices, groupId, openedWith, record, parent)
{ }
