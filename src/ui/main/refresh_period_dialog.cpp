#include "ui/main/refresh_period_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/number_field.h"

#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeast = 1; // minutes
constexpr int kMost = 30;

} // namespace

RefreshPeriodDialog::RefreshPeriodDialog(Prompt &messages, int minutes, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , period(new NumberField({.least = kLeast, .most = kMost}, this))
{
    setWindowTitle(tr("Refresh period"));
    StaysUnlocked();
    setObjectName(u"refreshPeriodDialog"_s);
    period->setObjectName(u"period"_s);
    period->setMaximumWidth(fontMetrics().averageCharWidth() * 10);
    period->StepByKeys();
    period->SetNumber(static_cast<quint32>(std::clamp(minutes, kLeast, kMost)));

    auto *row = new QHBoxLayout;
    row->addWidget(LabelFor(tr("Enter refresh period, min:"), *period));
    row->addWidget(period);
    row->addWidget(new QLabel(u"[1...30]"_s, this));
    row->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addStretch();
    layout->addWidget(OkAndCancel(*this));
    period->setFocus();
    period->selectAll();
}

void RefreshPeriodDialog::accept()
{
    if (HoldsNumber(prompt, *period)) {
        QDialog::accept();
    }
}

int RefreshPeriodDialog::Minutes() const
{
    return static_cast<int>(period->Number().value_or(kLeast));
}
