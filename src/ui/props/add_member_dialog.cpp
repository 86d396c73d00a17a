#include "ui/props/add_member_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

AddMemberDialog::AddMemberDialog(std::vector<Member> users, QWidget *parent)
    : Dialog(parent)
    , offered(std::move(users))
    , list(new QListWidget)
{
    setWindowTitle(tr("Add user to the group"));
    list->setObjectName(u"users"_s);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    for (const Member &user : offered) {
        new QListWidgetItem(IconOf(Picture::User), user.name, list);
    }
    auto *buttons = OkAndCancel(*this);
    auto *ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    auto *column = new QVBoxLayout(this);
    column->addWidget(LabelFor(tr("Users of other groups:"), *list));
    column->addWidget(list);
    column->addWidget(buttons);
    connect(list, &QListWidget::itemSelectionChanged, ok, [this, ok] {
        ok->setEnabled(!list->selectedItems().isEmpty());
    });
    connect(list, &QListWidget::itemDoubleClicked, this, &AddMemberDialog::accept);
}

std::vector<Member> AddMemberDialog::Chosen() const
{
    std::vector<Member> chosen;
    for (size_t row = 0; row < offered.size(); ++row) {
        if (list->item(static_cast<int>(row))->isSelected()) {
            chosen.push_back(offered[row]);
        }
    }
    return chosen;
}
