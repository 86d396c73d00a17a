// The two small dialogs that ask for a new credit.
#pragma once

#include "access/owner.h"
#include "access/staged_account.h"
#include "accounts/currency.h"
#include "base/prompt.h"
#include "ui/common/dialog.h"

class NumberField;
class DayField;
class QButtonGroup;
class QCheckBox;
class QLabel;

// What both have in common: a choice of kinds, an amount with its unit, OK and Cancel.
class CreditDialog : public Dialog
{
    Q_OBJECT

public:
    // The credit entered; has a meaning once the dialog was accepted.
    [[nodiscard]] const StagedCredit &Credit() const { return credit; }

    // OK: the dialog stays open while the amount or the expiry day is refused.
    void accept() override;

protected:
    // Money is typed in `currency`.
    CreditDialog(Prompt &prompt, Currency currency, QWidget *parent);
    void AddKind(CreditKind kind, const QString &text, const char *objectName, bool enabled = true);
    void Choose(CreditKind kind);
    [[nodiscard]] CreditKind Kind() const;
    // Adds the amount and `more`, which may be null, below the kinds, and the buttons at the end.
    void Finish(QWidget *more);
    // Where the expiry day stands; null for a credit that never expires.
    [[nodiscard]] virtual DayField *ExpiryField() const;

private:
    void KindChanged();

    Prompt &prompt;
    const Currency currency;
    QButtonGroup *kinds;
    NumberField *amount;
    QLabel *unit;
    StagedCredit credit;
};

// A credit that extends a limit of the current accounting period: traffic, or a user's time.
class LimitCreditDialog : public CreditDialog
{
    Q_OBJECT

public:
    // Of the two kinds one at least is offered.
    LimitCreditDialog(Prompt &prompt,
                      const Currency &currency,
                      const QList<CreditKind> &offered,
                      QWidget *parent);
};

// A pre-paid credit: without bound, of traffic or of money, with an expiry day or none.
class BillingCreditDialog : public CreditDialog
{
    Q_OBJECT

public:
    BillingCreditDialog(Prompt &prompt, const Currency &currency, QWidget *parent);

private:
    [[nodiscard]] DayField *ExpiryField() const override;

    QCheckBox *noExpiry;
    DayField *expiryDay;
};

// Asks with the dialog that fits the owner's mode. Nothing when it was cancelled, or when the mode
// has no credits: a group has some in modes 1 and 2 only.
[[nodiscard]] std::optional<StagedCredit> AskForCredit(Prompt &prompt,
                                                       const Currency &currency,
                                                       const Owner &owner,
                                                       AccountingMode ownerMode,
                                                       QWidget *parent);
