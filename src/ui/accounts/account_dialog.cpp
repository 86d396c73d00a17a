#include "ui/accounts/account_dialog.h"

#include "accounts/credit.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "ui/accounts/credit_dialogs.h"
#include "ui/accounts/credit_table.h"
#include "ui/accounts/currency_now.h"
#include "ui/accounts/owner_notice.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/heading_line.h"
#include "ui/common/look_lock.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

Result<std::optional<OpenedAccount>> ReadAccount(const Owner &owner)
{
    const auto ownerMode = ModeOf(owner);
    if (!ownerMode) {
        return tl::unexpected(ownerMode.error());
    }
    auto name = NameOf(owner);
    if (!name) {
        return tl::unexpected(std::move(name.error()));
    }
    if (!*ownerMode || !*name) {
        return std::nullopt;
    }
    auto history = ReadHistory({owner, **ownerMode, false, HistoryPeriod::AllRecords});
    if (!history) {
        return tl::unexpected(std::move(history.error()));
    }
    return OpenedAccount {**std::move(name), **ownerMode, *std::move(history)};
}

AccountDialog::AccountDialog(const AppServices &appServices,
                             const Owner &whose,
                             OpenedAccount account,
                             const Currency &shown,
                             QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , owner(whose)
    , ownerMode(account.ownerMode)
    , currency(shown)
    , stored(std::move(account.history))
    , table(new CreditTable(HistoryColumns(ownerMode),
                            HistoryHeaders(ownerMode),
                            tr("No credits in this period"),
                            this))
    , unread(UnreadNote())
    , period(new QComboBox(this))
    , openOnly(new QCheckBox(tr("&Open credits only"), this))
{
    setWindowTitle(tr("Account"));
    BuildControls(account.ownerName);
    ListRows();
    table->setFocus();
}

void AccountDialog::BuildControls(const QString &ownerName)
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(OwnerHeading(owner, ownerName, this));
    layout->addWidget(FilterLine());
    layout->addWidget(table, 1);
    layout->addWidget(unread);
    layout->addWidget(ButtonLine());
    layout->addWidget(OkAndCancel(*this));
}

QWidget *AccountDialog::FilterLine()
{
    auto *line = new QWidget(this);
    period->setObjectName(u"period"_s);
    period->addItems(HistoryPeriodNames());
    openOnly->setObjectName(u"openOnly"_s);
    KeepForLooking(*period);
    KeepForLooking(*openOnly);
    connect(period, &QComboBox::currentIndexChanged, this, &AccountDialog::Refill);
    connect(openOnly, &QCheckBox::toggled, this, &AccountDialog::Refill);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    layout->addWidget(LabelFor(tr("&Period:"), *period));
    layout->addWidget(period);
    layout->addWidget(openOnly);
    layout->addStretch();
    return line;
}

QWidget *AccountDialog::ButtonLine()
{
    auto *line = new QWidget(this);
    auto *add = MakeButton<QPushButton>(tr("&Add credit..."), "addCredit");
    auto *close = MakeButton<QPushButton>(tr("C&lose credit"), "closeCredit");
    auto *remove = MakeButton<QPushButton>(tr("&Delete"), "deleteCredit");
    connect(add, &QPushButton::clicked, this, &AccountDialog::AddCredit);
    connect(close, &QPushButton::clicked, this, &AccountDialog::CloseSelected);
    connect(remove, &QPushButton::clicked, this, &AccountDialog::DeleteSelected);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    for (QPushButton *button : {add, close, remove}) {
        button->setAutoDefault(false); // Enter is OK
        layout->addWidget(button);
    }
    layout->addStretch();
    return line;
}

void AccountDialog::Refill()
{
    const HistoryFilter filter {owner,
                                ownerMode,
                                openOnly->isChecked(),
                                static_cast<HistoryPeriod>(period->currentIndex())};
    auto read = Await(
        services, this, tr("Reading the account..."), [filter] { return ReadHistory(filter); });
    unread->setHidden(read.has_value());
    if (read) {
        stored = *std::move(read);
        ListRows();
    } else {
        TellUnread(services, tr("The credits could not be read."), read.error());
    }
}

void AccountDialog::ListRows()
{
    rows = stored;
    for (HistoryRow &row : rows) {
        if (std::find(staged.closed.begin(), staged.closed.end(), row.billId)
            != staged.closed.end()) {
            row.status = HistoryStatus::Closed;
        }
    }
    for (const StagedCredit &credit : staged.credits) {
        rows.push_back(HistoryRowOf(credit));
    }
    ShowRows();
}

void AccountDialog::ShowRows()
{
    AddUpBalances(rows);
    QList<QStringList> lines;
    for (const HistoryRow &row : rows) {
        lines << HistoryCells(row, ownerMode, currency.rate);
    }
    table->SetRows(lines);
    // A new row may be wider than those that the dialog was made for.
    layout()->activate();
    resize(size().expandedTo(sizeHint()).boundedTo(screen()->availableSize()));
}

HistoryRow *AccountDialog::Selected()
{
    const int row = table->SelectedRow();
    return row < 0 ? nullptr : &rows[static_cast<std::size_t>(row)];
}

void AccountDialog::AddCredit()
{
    if (auto credit = AskForCredit(services.prompt, currency, owner, ownerMode, this)) {
        rows.push_back(HistoryRowOf(*credit));
        staged.credits.push_back(*std::move(credit));
        ShowRows();
        table->Select(static_cast<int>(rows.size()) - 1);
    }
}

void AccountDialog::CloseSelected()
{
    HistoryRow *row = Selected();
    if (row == nullptr) {
        services.prompt.Tell(tr("Please select credit to close"));
    } else if (row->status == HistoryStatus::New) {
        services.prompt.Tell(tr("Cannot close Expired or New account"));
    } else if (row->status != HistoryStatus::Closed) {
        row->status = HistoryStatus::Closed;
        staged.closed.push_back(row->billId);
        const int selected = table->SelectedRow();
        ShowRows();
        table->Select(selected);
    }
}

void AccountDialog::DeleteSelected()
{
    const HistoryRow *row = Selected();
    if (row == nullptr) {
        services.prompt.Tell(tr("Select the item to delete"));
    } else if (row->status != HistoryStatus::New) {
        services.prompt.Tell(tr("Cannot delete Expired or Active account"));
    } else {
        const int selected = table->SelectedRow();
        staged.credits.erase(staged.credits.begin() + (selected - static_cast<int>(stored.size())));
        rows.erase(rows.begin() + selected);
        ShowRows();
        table->Select(qMin(selected, static_cast<int>(rows.size()) - 1));
    }
}

void AccountDialog::accept()
{
    if (staged.IsEmpty() || Write()) {
        QDialog::accept();
    }
}

bool AccountDialog::Write()
{
    const auto now = CurrencyNow(services);
    return now
        && Perform(services,
                   this,
                   tr("Changing the account..."),
                   WriteAccountAction(owner, ownerMode, staged, now->rate));
}
