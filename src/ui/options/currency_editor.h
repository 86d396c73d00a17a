// The traffic price and the currencies: both texts, the list and its buttons.
#pragma once

#include "admin/currency_settings.h"
#include "base/prompt.h"
#include "ui/common/dialog.h"

#include <optional>

class NumberField;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class TextField;

// "Add currency", also for the properties of the defined one.
class CurrencyDialog : public Dialog
{
    Q_OBJECT

public:
    CurrencyDialog(Prompt &prompt, const CurrencyEntry &shown, QWidget *parent);

    [[nodiscard]] CurrencyEntry Entry() const;

    // Stays open while the entry is refused, and says why.
    void accept() override;

private:
    Prompt &prompt;
    TextField *symbol;
    TextField *title;
    NumberField *rate;
};

class CurrencyEditor : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        QString price;
        QString setPrice;
        QString add;
        QString remove;
        QString configure;
        QString set;
        QString used;
    };

    // Edits `settings` in place.
    CurrencyEditor(Prompt &prompt,
                   CurrencySettings &settings,
                   const Texts &texts,
                   QWidget *parent = nullptr);

    void Show();

private:
    [[nodiscard]] QWidget *PriceBox(const Texts &texts);
    [[nodiscard]] QWidget *CurrencyBox(const Texts &texts);
    [[nodiscard]] std::optional<int> Row() const;
    [[nodiscard]] bool HasRoom() const;
    void EnableButtons();
    void SelectRow(int row);
    void SetPrice();
    void Add();
    void Delete();
    void Configure();
    void Set();

    Prompt &prompt;
    CurrencySettings &settings;
    QLineEdit *price;
    QTreeWidget *list;
    QPushButton *add;
    QPushButton *remove;
    QPushButton *configure;
    QPushButton *set;
    QLineEdit *used;
};
