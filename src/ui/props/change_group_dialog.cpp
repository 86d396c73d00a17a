#include "ui/props/change_group_dialog.h"

#include "access/group_name.h"
#include "access/list_commands.h"
#include "access/owner.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "base/names_line.h"
#include "base/text.h"
#include "ui/accounts/owner_notice.h"
#include "ui/common/accessible.h"
#include "ui/common/heading_line.h"
#include "ui/common/icons.h"
#include "ui/props/name_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

ChangeGroupDialog::ChangeGroupDialog(const AppServices &appServices,
                                     const QList<NamedGroup> &groups,
                                     Place place,
                                     QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , list(new QListWidget(this))
    , add(new QPushButton(tr("Add group..."), this))
    , remove(new QPushButton(tr("Delete group"), this))
    , ok(nullptr)
{
    setWindowTitle(tr("Change group"));
    setObjectName(u"changeGroupDialog"_s);
    list->setObjectName(u"groups"_s);
    add->setObjectName(u"addGroup"_s);
    remove->setObjectName(u"deleteGroup"_s);
    Lay();
    connect(list, &QListWidget::itemSelectionChanged, this, &ChangeGroupDialog::Choose);
    connect(list, &QListWidget::itemDoubleClicked, this, &ChangeGroupDialog::accept);
    connect(add, &QPushButton::clicked, this, &ChangeGroupDialog::AddNewGroup);
    connect(remove, &QPushButton::clicked, this, &ChangeGroupDialog::DeleteChosenGroup);
    for (QPushButton *command : {add, remove}) {
        command->setVisible(place == Place::Command);
    }
    Fill(groups);
}

void ChangeGroupDialog::StartAt(GroupId groupId)
{
    const auto position = static_cast<int>(groupIds.indexOf(groupId));
    list->setCurrentRow(position, QItemSelectionModel::NoUpdate);
    if (position >= 0) {
        list->scrollToItem(list->item(position), QAbstractItemView::PositionAtCenter);
    }
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
    layout->addWidget(LabelFor(tr("Select one of the groups:"), *list));
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);
}

void ChangeGroupDialog::Fill(const QList<NamedGroup> &groups)
{
    for (const NamedGroup &group : groups) {
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

bool ChangeGroupDialog::IsNew(const QString &name) const
{
    for (int position = 0; position < list->count(); ++position) {
        if (NameKey(list->item(position)->text()) == NameKey(name)) {
            services.prompt.Tell(GroupNameTakenText());
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
    NameDialog dialog(tr("Add group"), tr("Enter the name of the group:"), this);
    const auto added = std::make_shared<GroupId>();
    dialog.SetCheck([&](const QString &name) {
        return IsNew(name)
            && Perform(services, &dialog, tr("Adding the group..."), AddGroupAction(name, added));
    });
    if (dialog.exec() == QDialog::Accepted) {
        List(dialog.Name(), *added);
    }
}

// Kept: the name takes its sorted place and its id the last one, so that names from there on stand for
// the wrong ids until the dialog is opened again.
void ChangeGroupDialog::List(const QString &name, GroupId groupId)
{
    list->insertItem(SortedPlace(name), name);
    groupIds.append(groupId);
    add->setEnabled(groupIds.size() < kGroupListCapacity);
}

void ChangeGroupDialog::DeleteChosenGroup()
{
    // By its id: beside a name that was added, another group's id may stand.
    const auto name = Await(services, this, tr("Reading the group's name..."), [this] {
        return NameOf(chosen.groupId);
    });
    if (!name) {
        TellUnread(services, tr("The group's name could not be read."), name.error());
        return;
    }
    if (!services.prompt.AskToDestroy(tr("You are going to remove the group. Continue?"),
                                      *name ? NamesLine({**name}) : QString())) {
        return;
    }
    if (chosen.name == u"Everybody"_s) { // kept: the message does not stop the statements
        services.prompt.Tell(tr("You can not delete 'Everybody' group"));
        (void)Delete(chosen.groupId);
    } else if (Delete(chosen.groupId)) {
        const int position = ChosenRow();
        groupIds.removeAt(position);
        delete list->takeItem(position);
        list->clearSelection();
    }
}

bool ChangeGroupDialog::Delete(GroupId groupId)
{
    return Perform(services, this, tr("Deleting the group..."), DeleteGroupOfDialogAction(groupId));
}

void ChangeGroupDialog::accept()
{
    if (ChosenRow() < 0) {
        services.prompt.Tell(tr("Select group to change, please"));
        return;
    }
    QDialog::accept();
}

namespace {

using Place = ChangeGroupDialog::Place;

struct Choices
{
    QList<NamedGroup> groups;
    std::optional<GroupId> current;
    QStringList names; // of the users, the first few
};

// Null for nobody.
HeadingLine *HeadingFor(const QList<UserId> &userIds, const QStringList &names)
{
    if (names.isEmpty()) {
        return nullptr;
    }
    if (userIds.size() == 1) {
        return OwnerHeading(userIds.front(), names.front(), nullptr);
    }
    return new HeadingLine(
        IconOf(Picture::User),
        ChangeGroupDialog::tr("Users: %1").arg(NamesLine(names, userIds.size())));
}

std::optional<NamedGroup> Choose(const AppServices &services,
                                 Place place,
                                 Result<Choices> choices,
                                 const QList<UserId> &userIds,
                                 QWidget *parent)
{
    if (!choices) {
        TellUnread(
            services, ChangeGroupDialog::tr("The groups could not be read."), choices.error());
        return std::nullopt;
    }
    ChangeGroupDialog dialog(services, choices->groups, place, parent);
    if (HeadingLine *heading = HeadingFor(userIds, choices->names)) {
        dialog.SetHeading(heading);
    }
    if (choices->current) {
        dialog.StartAt(*choices->current);
    }
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.ChosenGroup()) : std::nullopt;
}

// A user that is gone meanwhile has none.
Result<QStringList> ReadFirstNames(const QList<UserId> &userIds)
{
    QStringList names;
    for (const UserId userId : userIds.first(std::min(userIds.size(), kMostNames))) {
        const auto name = NameOf(userId);
        if (!name) {
            return tl::unexpected(name.error());
        }
        if (*name) {
            names << **name;
        }
    }
    return names;
}

Result<Choices> ReadChoicesFor(const QList<UserId> &userIds)
{
    auto groups = ReadGroupNames();
    if (!groups) {
        return tl::unexpected(std::move(groups.error()));
    }
    if (userIds.isEmpty()) {
        return Choices {*std::move(groups), {}, {}};
    }
    const auto current = ReadGroupOfUser(userIds.front());
    if (!current) {
        return tl::unexpected(current.error());
    }
    return ReadFirstNames(userIds).map([&](QStringList names) {
        return Choices {*std::move(groups), *current, std::move(names)};
    });
}

} // namespace

std::optional<NamedGroup>
ChooseGroupFor(const AppServices &services, const QList<UserId> &userIds, QWidget *parent)
{
    auto choices =
        Await(services, parent, ChangeGroupDialog::tr("Reading the groups..."), [userIds] {
            return ReadChoicesFor(userIds);
        });
    if (choices && userIds.size() == 1 && choices->names.isEmpty()) {
        TellOwnerIsGone(services.prompt, userIds.front());
        return std::nullopt;
    }
    return Choose(services, Place::Command, std::move(choices), userIds, parent);
}

std::optional<NamedGroup>
ChooseGroupInSheet(const AppServices &services, GroupId current, QWidget *parent)
{
    auto groups =
        Await(services, parent, ChangeGroupDialog::tr("Reading the groups..."), ReadGroupNames);
    return Choose(services,
                  Place::Sheet,
                  std::move(groups).map([current](QList<NamedGroup> names) {
                      return Choices {std::move(names), current, {}};
                  }),
                  {},
                  parent);
}
