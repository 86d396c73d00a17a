#include "ui/main/refresh_period_dialog.h"

#include "ui/common/accessible.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

using namespace Qt::StringLiterals;

RefreshPeriodDialog::RefreshPeriodDialog(int minutes, QWidget *parent)
    : QDialog(parent)
    , period(new QSpinBox(this))
{
    setWindowTitle(tr("Refresh period"));
    setObjectName(u"refreshPeriodDialog"_s);
    period->setObjectName(u"period"_s);
    period->setRange(1, 30);
    period->setValue(minutes);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cancel"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &RefreshPeriodDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &RefreshPeriodDialog::reject);

    auto *row = new QHBoxLayout;
    row->addWidget(LabelFor(tr("Enter refresh period, min:"), *period));
    row->addWidget(period);
    row->addWidget(new QLabel(u"[1...30]"_s, this));
    row->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addStretch();
    layout->addWidget(buttons);
    period->setFocus();
    period->selectAll();
}

int RefreshPeriodDialog::Minutes() const
{
    return period->value();
}
