#include "ui/options/currency_editor.h"

#include "access/limits.h"
#include "base/amount_text.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/number_field.h"
#include "ui/common/text_field.h"
#include "ui/options/entry_dialog.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int kShownRows = 4;

} // namespace

CurrencyDialog::CurrencyDialog(Prompt &messages, const CurrencyEntry &shown, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , symbol(new TextField)
    , title(new TextField)
    , rate(new NumberField(kRateBounds))
{
    setWindowTitle(tr("Add currency"));
    symbol->setObjectName(u"symbol"_s);
    symbol->setText(shown.symbol);
    title->setObjectName(u"title"_s);
    title->setText(shown.title);
    rate->setObjectName(u"rate"_s);
    rate->setText(shown.rate);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("Symbol (e.g. USD) :"), *symbol), symbol);
    form->addRow(LabelFor(tr("Title"), *title), title);
    form->addRow(LabelFor(tr("Rate (currency/units)"), *rate), rate);
    form->addRow(OkAndCancel(*this));
}

CurrencyEntry CurrencyDialog::Entry() const
{
    return {symbol->text(), title->text(), rate->text()};
}

void CurrencyDialog::accept()
{
    if (const auto problem = CheckEntry(Entry())) {
        if (problem == CurrencyProblem::SymbolMissing) {
            Refuse(prompt, *symbol, TextOf(*problem));
        } else {
            RefuseNumber(prompt, *rate, TextOf(*problem));
        }
        return;
    }
    QDialog::accept();
}

CurrencyEditor::CurrencyEditor(Prompt &messages,
                               CurrencySettings &edited,
                               const Texts &texts,
                               QWidget *parent)
    : QWidget(parent)
    , prompt(messages)
    , settings(edited)
    , price(ShownValue("price"))
    , list(new QTreeWidget)
    , add(MakeButton<QPushButton>(texts.add, "currencyAdd"))
    , remove(MakeButton<QPushButton>(texts.remove, "currencyRemove"))
    , configure(MakeButton<QPushButton>(texts.configure, "currencyConfigure"))
    , set(MakeButton<QPushButton>(texts.set, "currencySet"))
    , used(ShownValue("usedCurrency"))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(PriceBox(texts));
    column->addWidget(CurrencyBox(texts));
    connect(list, &QTreeWidget::itemSelectionChanged, this, &CurrencyEditor::EnableButtons);
    connect(add, &QPushButton::clicked, this, &CurrencyEditor::Add);
    connect(remove, &QPushButton::clicked, this, &CurrencyEditor::Delete);
    connect(configure, &QPushButton::clicked, this, &CurrencyEditor::Configure);
    connect(set, &QPushButton::clicked, this, &CurrencyEditor::Set);
    Show();
    add->setEnabled(HasRoom());
}

QWidget *CurrencyEditor::PriceBox(const Texts &texts)
{
    auto *box = new QWidget;
    auto *setPrice = MakeButton<QPushButton>(texts.setPrice, "setPrice");
    setPrice->setAutoDefault(false);
    connect(setPrice, &QPushButton::clicked, this, &CurrencyEditor::SetPrice);
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(LabelFor(texts.price, *price));
    row->addWidget(price, 1);
    row->addWidget(setPrice);
    return box;
}

QWidget *CurrencyEditor::CurrencyBox(const Texts &texts)
{
    auto *box = new QGroupBox(tr("Currencies"));
    SetNames(*list, u"currencies"_s, tr("Currencies"));
    list->setRootIsDecorated(false);
    list->setHeaderLabels({tr("Title"), tr("Symbol"), tr("Rate")});
    list->header()->setSectionResizeMode(QHeaderView::Stretch);
    list->setMinimumHeight(list->fontMetrics().height() * kShownRows);
    auto *grid = new QGridLayout(box);
    int row = 0;
    for (QPushButton *button : {add, remove, configure, set}) {
        button->setAutoDefault(false);
        grid->addWidget(button, row++, 2);
    }
    grid->addWidget(list, 0, 0, row + 1, 2);
    grid->setRowStretch(row++, 1);
    grid->addWidget(LabelFor(texts.used, *used), row, 0);
    grid->addWidget(used, row, 1);
    return box;
}

void CurrencyEditor::Show()
{
    price->setText(AmountText(settings.trafficPrice));
    used->setText(UsedSymbol(settings));
    const QSignalBlocker quiet(list);
    list->clear();
    for (const CurrencyRow &row : CurrencyRows(settings)) {
        list->addTopLevelItem(new QTreeWidgetItem({row.name, row.symbol, row.rate}));
    }
}

std::optional<int> CurrencyEditor::Row() const
{
    const auto selected = list->selectedItems();
    return selected.isEmpty() ? std::nullopt
                              : std::optional(list->indexOfTopLevelItem(selected.first()));
}

bool CurrencyEditor::HasRoom() const
{
    return CurrencyRows(settings).size() < 2;
}

void CurrencyEditor::EnableButtons()
{
    const bool selected = Row().has_value();
    add->setEnabled(selected && HasRoom());
    for (QPushButton *button : {remove, configure, set}) {
        button->setEnabled(selected);
    }
}

void CurrencyEditor::SelectRow(int row)
{
    list->setCurrentItem(list->topLevelItem(row));
    EnableButtons();
}

void CurrencyEditor::SetPrice()
{
    auto *field = new NumberField(kPriceBounds);
    field->setObjectName(u"newPrice"_s);
    field->SetAmount(settings.trafficPrice);
    const QString shown = field->text();
    const auto take = [this, field, &shown] {
        if (field->text() == shown) {
            return true;
        }
        if (!HoldsNumber(
                prompt, *field, field->IsBlank() ? tr("Enter the rate please") : QString())) {
            return false;
        }
        settings.trafficPrice = *field->Amount();
        return true;
    };
    EntryDialog dialog(tr("Rate", "the price of traffic"), tr("units per Mb"), field, take, this);
    if (dialog.exec() == QDialog::Accepted) {
        price->setText(AmountText(settings.trafficPrice));
    }
}

void CurrencyEditor::Add()
{
    CurrencyDialog dialog(prompt, {}, this);
    if (dialog.exec() == QDialog::Accepted) {
        AddCurrency(settings, dialog.Entry());
        Show();
        SelectRow(1);
    }
}

void CurrencyEditor::Delete()
{
    if (const auto problem = CheckDelete(Row())) {
        Complain(prompt, TextOf(*problem));
        return;
    }
    DeleteCurrency(settings);
    Show();
    SelectRow(kBaseCurrencyRow);
}

void CurrencyEditor::Configure()
{
    if (const auto problem = CheckEdit(Row())) {
        Complain(prompt, TextOf(*problem));
        return;
    }
    const CurrencyEntry shown = EntryOf(settings);
    CurrencyDialog dialog(prompt, shown, this);
    if (dialog.exec() == QDialog::Accepted) {
        ChangeCurrency(settings, shown, dialog.Entry());
        Show();
        SelectRow(1);
    }
}

void CurrencyEditor::Set()
{
    const auto row = Row();
    if (const auto problem = SetCurrency(settings, row)) {
        Complain(prompt, TextOf(*problem));
        return;
    }
    Show();
    SelectRow(*row);
}
