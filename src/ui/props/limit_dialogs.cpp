#include "ui/props/limit_dialogs.h"

#include "access/limits.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/number_field.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>

using namespace Qt::StringLiterals;

QString PeriodName(LimitPeriod period)
{
    switch (period) {
    case LimitPeriod::Day:
        return PeriodDialog::tr("Day");
    case LimitPeriod::Month:
        return PeriodDialog::tr("Month");
    default:
        return {};
    }
}

PeriodDialog::PeriodDialog(Prompt &messages, LimitPeriod period, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , list(new QListWidget)
{
    setWindowTitle(tr("Accounting period"));
    list->setObjectName(u"periods"_s);
    list->addItems({PeriodName(LimitPeriod::Day), PeriodName(LimitPeriod::Month)});
    list->setCurrentRow(static_cast<int>(period) - 1);
    list->setMaximumHeight((list->count() + 1) * list->sizeHintForRow(0));
    auto *column = new QVBoxLayout(this);
    column->addWidget(LabelFor(tr("Accounting period:"), *list));
    column->addWidget(list);
    column->addWidget(OkAndCancel(*this));
    connect(list, &QListWidget::itemDoubleClicked, this, &PeriodDialog::accept);
}

void PeriodDialog::accept()
{
    if (Period() == LimitPeriod::None) {
        Complain(prompt, tr("Please choose an accounting period"));
        return;
    }
    QDialog::accept();
}

LimitPeriod PeriodDialog::Period() const
{
    return list->selectedItems().isEmpty() ? LimitPeriod::None
                                           : static_cast<LimitPeriod>(list->currentRow() + 1);
}

LimitDialog::LimitDialog(Prompt &messages, const QString &label, quint32 limit, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , field(new NumberField)
{
    setWindowTitle(tr("Limit"));
    field->setObjectName(u"limit"_s);
    field->SetNumber(limit);
    field->selectAll();
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(label, *field), field);
    form->addRow(OkAndCancel(*this));
}

void LimitDialog::accept()
{
    if (HoldsNumber(prompt, *field, tr("Please enter the limit as a whole number"))) {
        QDialog::accept();
    }
}

quint32 LimitDialog::Limit() const
{
    return field->Number().value_or(0);
}

RateDialog::RateDialog(Prompt &messages, double rate, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , field(new NumberField(kPriceBounds))
{
    setWindowTitle(tr("Rate"));
    field->setObjectName(u"rate"_s);
    field->SetAmount(rate);
    field->selectAll();
    auto *row = new QHBoxLayout;
    row->addWidget(field);
    row->addWidget(LabelFor(tr("units per Mb"), *field));
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(OkAndCancel(*this));
}

void RateDialog::accept()
{
    if (HoldsNumber(prompt, *field, tr("Please enter the rate as a number from 0 to 1000000000"))) {
        QDialog::accept();
    }
}

double RateDialog::Rate() const
{
    return field->Amount().value_or(0.0);
}
