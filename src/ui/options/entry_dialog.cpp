#include "ui/options/entry_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QFormLayout>
#include <QLabel>

EntryDialog::EntryDialog(const QString &title,
                         const QString &label,
                         QWidget *field,
                         std::function<bool()> accepts,
                         QWidget *parent)
    : Dialog(parent)
    , check(std::move(accepts))
{
    setWindowTitle(title);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(label, *field), field);
    form->addRow(OkAndCancel(*this));
    field->setFocus();
}

void EntryDialog::accept()
{
    if (check()) {
        QDialog::accept();
    }
}
