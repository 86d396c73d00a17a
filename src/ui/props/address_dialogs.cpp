#include "ui/props/address_dialogs.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/ip_address_field.h"
#include "ui/common/text_field.h"

#include <QFormLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMacCharacters = 12;

}

ChangeIpDialog::ChangeIpDialog(Prompt &messages, const QString &address, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , field(new IpAddressField(tr("IP address")))
{
    setWindowTitle(tr("Change IP Address"));
    field->setObjectName(u"address"_s);
    field->setMaximumWidth(2 * fontMetrics().horizontalAdvance(u"000.000.000.000"_s));
    if (const auto shown = Ipv4From(address)) {
        field->SetAddress(*shown);
    }
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("IP address:"), *field), field);
    form->addRow(OkAndCancel(*this));
}

void ChangeIpDialog::accept()
{
    const auto address = field->Address();
    if (!address) {
        Complain(prompt, tr("Please enter full IP address"));
        field->FocusWhatIsMissing();
        return;
    }
    emit Entered(*address);
    QDialog::accept();
}

ChangeMacDialog::ChangeMacDialog(Prompt &messages, const QString &address, QWidget *parent)
    : Dialog(parent)
    , prompt(messages)
    , field(new TextField)
{
    setWindowTitle(tr("Change MAC address"));
    field->setObjectName(u"address"_s);
    field->setText(address);
    field->selectAll();
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("MAC address:"), *field), field);
    form->addRow(OkAndCancel(*this));
}

void ChangeMacDialog::accept()
{
    if (field->text().toUcs4().size() != kMacCharacters) {
        Refuse(prompt,
               *field,
               tr("MAC address can contain only 12 symbols. Please re-enter the address"));
        return;
    }
    QDialog::accept();
}

QString ChangeMacDialog::Address() const
{
    return field->text();
}
