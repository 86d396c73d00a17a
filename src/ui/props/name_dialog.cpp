#include "ui/props/name_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/text_field.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

NameDialog::NameDialog(const QString &title, const QString &label, QWidget *parent)
    : Dialog(parent)
    , name(new TextField(this))
{
    GoWithoutHeading(); // it is for the one whose name is typed
    setWindowTitle(title);
    setObjectName(u"nameDialog"_s);
    name->setObjectName(u"name"_s);
    name->setMinimumWidth(name->fontMetrics().averageCharWidth() * 40);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"ok"_s);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cancel"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &NameDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NameDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(LabelFor(label, *name));
    layout->addWidget(name);
    layout->addStretch();
    layout->addWidget(buttons);
}

void NameDialog::SetName(const QString &newName)
{
    name->setText(newName);
    name->selectAll();
}

QString NameDialog::Name() const
{
    return name->text().trimmed();
}

void NameDialog::SetCheck(std::function<bool(const QString &)> newCheck)
{
    check = std::move(newCheck);
}

void NameDialog::accept()
{
    if (!check || check(Name())) {
        QDialog::accept();
    }
}
