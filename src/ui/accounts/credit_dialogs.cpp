#include "ui/accounts/credit_dialogs.h"

#include "accounts/credit_entry.h"
#include "base/day.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/moment_field.h"
#include "ui/common/number_field.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

CreditDialog::CreditDialog(Prompt &messages, Currency shown, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , currency(std::move(shown))
    , kinds(new QButtonGroup(this))
    , amount(new NumberField({.least = 0.01, .most = kMostCredit, .decimals = 2}, this))
    , unit(new QLabel(this))
{
    setWindowTitle(tr("Add credit"));
    amount->setObjectName(u"amount"_s);
    unit->setObjectName(u"unit"_s);
    auto *layout = new QVBoxLayout(this);
    auto *box = new QGroupBox(tr("Credit"), this);
    box->setLayout(new QVBoxLayout);
    layout->addWidget(box);
}

void CreditDialog::AddKind(CreditKind kind,
                           const QString &text,
                           const char *objectName,
                           bool enabled)
{
    auto *box = findChild<QGroupBox *>();
    auto *button = MakeButton<QRadioButton>(text, objectName);
    button->setEnabled(enabled);
    kinds->addButton(button, static_cast<int>(kind));
    box->layout()->addWidget(button);
}

void CreditDialog::Choose(CreditKind kind)
{
    kinds->button(static_cast<int>(kind))->setChecked(true);
}

CreditKind CreditDialog::Kind() const
{
    return static_cast<CreditKind>(kinds->checkedId());
}

void CreditDialog::Finish(QWidget *more)
{
    auto *layout = static_cast<QVBoxLayout *>(this->layout());
    auto *line = new QHBoxLayout;
    line->addWidget(LabelFor(tr("&Amount:"), *amount));
    line->addWidget(amount, 1);
    line->addWidget(unit);
    layout->addLayout(line);
    if (more != nullptr) {
        layout->addWidget(more);
    }
    layout->addWidget(OkAndCancel(*this));
    connect(kinds, &QButtonGroup::idToggled, this, &CreditDialog::KindChanged);
    KindChanged();
    amount->setFocus();
}

DayField *CreditDialog::ExpiryField() const
{
    return nullptr;
}

void CreditDialog::KindChanged()
{
    const bool hasAmount = Kind() != CreditKind::Unlimited;
    amount->setEnabled(hasAmount);
    unit->setText(hasAmount ? UnitName(currency, Kind()) : QString());
    amount->SetUnit(unit->text());
}

void CreditDialog::accept()
{
    if (const auto problem = CheckAmount(Kind(), amount->Amount(), currency.rate)) {
        RefuseNumber(prompt, *amount, *problem);
        return;
    }
    DayField *expiryField = ExpiryField();
    if (expiryField != nullptr && !HoldsMoment(prompt, *expiryField)) {
        return;
    }
    const QDate expiry = expiryField == nullptr ? QDate() : *expiryField->Day();
    if (const auto passed = expiry.isValid() ? CheckExpiry(expiry) : std::nullopt) {
        Refuse(prompt, *expiryField, *passed);
    } else {
        credit = CreditFrom(Kind(), amount->Amount().value_or(0.0), currency.rate, expiry);
        QDialog::accept();
    }
}

LimitCreditDialog::LimitCreditDialog(Prompt &messages,
                                     const Currency &shown,
                                     const QList<CreditKind> &offered,
                                     QWidget *parent)
    : CreditDialog(messages, shown, parent)
{
    AddKind(CreditKind::Traffic, tr("&Traffic"), "traffic", offered.contains(CreditKind::Traffic));
    AddKind(CreditKind::Time, tr("T&ime"), "time", offered.contains(CreditKind::Time));
    Choose(offered.constFirst());
    Finish(nullptr);
}

BillingCreditDialog::BillingCreditDialog(Prompt &messages, const Currency &shown, QWidget *parent)
    : CreditDialog(messages, shown, parent)
    , noExpiry(new QCheckBox(tr("&No expiry date"), this))
    , expiryDay(new DayField(Today().addMonths(1), this))
{
    AddKind(CreditKind::Unlimited, tr("&Unlimited"), "unlimited");
    AddKind(CreditKind::Traffic, tr("&Traffic"), "traffic");
    AddKind(CreditKind::Money, tr("&Money"), "money");
    Choose(CreditKind::Traffic);
    noExpiry->setObjectName(u"noExpiry"_s);
    noExpiry->setChecked(true);
    expiryDay->setObjectName(u"expiryDay"_s);
    expiryDay->setEnabled(false);
    connect(noExpiry, &QCheckBox::toggled, expiryDay, &QWidget::setDisabled);
    auto *box = new QGroupBox(tr("Expiry"), this);
    auto *line = new QHBoxLayout;
    line->addWidget(LabelFor(tr("&Expiry date:"), *expiryDay));
    line->addWidget(expiryDay, 1);
    auto *boxLayout = new QVBoxLayout(box);
    boxLayout->addWidget(noExpiry);
    boxLayout->addLayout(line);
    Finish(box);
}

DayField *BillingCreditDialog::ExpiryField() const
{
    return noExpiry->isChecked() ? nullptr : expiryDay;
}

namespace {

std::optional<StagedCredit> CreditOf(CreditDialog &&dialog)
{
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Credit()) : std::nullopt;
}

} // namespace

std::optional<StagedCredit> AskForCredit(Prompt &prompt,
                                         const Currency &currency,
                                         const Owner &owner,
                                         AccountingMode ownerMode,
                                         QWidget *parent)
{
    const QList<CreditKind> offered = CreditKindsFor(owner, ownerMode);
    if (offered.isEmpty()) {
        return std::nullopt;
    }
    return offered.contains(CreditKind::Unlimited)
        ? CreditOf(BillingCreditDialog(prompt, currency, parent))
        : CreditOf(LimitCreditDialog(prompt, currency, offered, parent));
}
