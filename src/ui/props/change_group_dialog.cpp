#include "ui/props/change_group_dialog.h"

#include "access/list_commands.h"
#include "ui/common/accessible.h"
#include "ui/props/name_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ChangeGroupDialog::ChangeGroupDialog(const AppServices &appServices, QWidget *parent)
    : QDialog(parent)
    , services(appServices)
    , list(new QListWidget(this))
    , add(new QPushButton(u"Add group..."_s, this))
    , remove(new QPushButton(u"Delete group"_s, this))
    , ok(nullptr)
{
    setWindowTitle(u"Change group"_s);
    setObjectName(u"changeGroupDialog"_s);
    list->setObjectName(u"groups"_s);
    add->setObjectName(u"addGroup"_s);
    remove->setObjectName(u"deleteGroup"_s);
    Lay();
    connect(list, &QListWidget::itemSelectionChanged, this, &ChangeGroupDialog::Choose);
    connect(list, &QListWidget::itemDoubleClicked, this, &ChangeGroupDialog::accept);
    connect(add, &QPushButton::clicked, this, &ChangeGroupDialog::AddNewGroup);
    connect(remove, &QPushButton::clicked, this, &ChangeGroupDialog::DeleteChosenGroup);
    Fill();
}

void ChangeGroupDialog::Lay()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(u"ok"_s);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cancel"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &ChangeGroupDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ChangeGroupDialog::reject);

    auto *side = new QVBoxLayout;
    side->addWidget(add);
    side->addWidget(remove);
    side->addStretch();
    auto *middle = new QHBoxLayout;
    middle->addWidget(list, 1);
    middle->addLayout(side);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(LabelFor(u"Select one of the groups:"_s, *list));
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);
    setTabOrder(list, add);
    setTabOrder(add, remove);
    setTabOrder(remove, ok);
}

void ChangeGroupDialog::Fill()
{
    for (const NamedGroup &group : ReadGroupNames()) {
        groupIds.append(group.groupId);
        list->addItem(group.name);
    }
    Choose();
}

// The current row is not enough: the list makes its first one current as soon as it has the focus.
int ChangeGroupDialog::ChosenRow() const
{
    const QModelIndexList rows = list->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void ChangeGroupDialog::Choose()
{
    const int position = ChosenRow();
    const bool isChosen = position >= 0;
    chosen = isChosen ? NamedGroup {list->item(position)->text(), groupIds.value(position)}
                      : NamedGroup();
    ok->setEnabled(isChosen);
    remove->setEnabled(isChosen);
    add->setEnabled(groupIds.size() < kGroupListCapacity);
}

bool ChangeGroupDialog::IsNew(const QString &name)
{
    for (int position = 0; position < list->count(); ++position) {
        if (list->item(position)->text().compare(name, Qt::CaseInsensitive) == 0) {
            services.prompt.Tell(u"The group with this name already exists!"_s);
            return false;
        }
    }
    return true;
}

int ChangeGroupDialog::SortedPlace(const QString &name) const
{
    int position = 0;
    while (position < list->count()
           && list->item(position)->text().compare(name, Qt::CaseInsensitive) <= 0) {
        ++position;
    }
    return position;
}

void ChangeGroupDialog::AddNewGroup()
{
    NameDialog dialog(u"Add group"_s, u"Enter the name of the group:"_s, this);
    dialog.SetCheck([this](const QString &name) { return IsNew(name); });
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const GroupId groupId = AddGroup(dialog.Name());
    if (!groupId.IsSet()) { // users moved there would be in no group, and gone from every list
        services.prompt.Tell(u"The group could not be added; the failed statements tell why."_s,
                             Prompt::Icon::Error);
        return;
    }
    // Kept: the name takes its sorted place and its id the last one, so that names from there on
    // stand for the wrong ids until the dialog is opened again.
    list->insertItem(SortedPlace(dialog.Name()), dialog.Name());
    groupIds.append(groupId);
    add->setEnabled(groupIds.size() < kGroupListCapacity);
}

void ChangeGroupDialog::DeleteChosenGroup()
{
    if (!services.prompt.Ask(u"You are going to remove the group. Continue?"_s)) {
        return;
    }
    const NamedGroup group = chosen;
    if (group.name == u"Everybody"_s) { // kept: the message does not stop the statements
        services.prompt.Tell(u"You can not delete 'Everybody' group"_s);
    } else {
        const int position = ChosenRow();
        groupIds.removeAt(position);
        delete list->takeItem(position);
        list->clearSelection();
    }
    DeleteGroupOfDialog(group.groupId);
}

void ChangeGroupDialog::accept()
{
    if (ChosenRow() < 0) {
        services.prompt.Tell(u"Select group to change, please"_s);
        return;
    }
    QDialog::accept();
}
