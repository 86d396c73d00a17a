#include "ui/props/group_general_page.h"

#include "access/access_mode.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"
#include "ui/common/text_field.h"
#include "ui/props/add_member_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString ModeName(AccountingMode storedMode)
{
    switch (ChoiceFor(storedMode).type) {
    case AccessType::Corporate:
        return CAdministratorGroupPPage::tr("Corporate");
    case AccessType::Provider:
        return CAdministratorGroupPPage::tr("Provider");
    case AccessType::NoControl:
        break;
    }
    return CAdministratorGroupPPage::tr("No control");
}

} // namespace

CAdministratorGroupPPage::CAdministratorGroupPPage(const AppServices &appServices,
                                                   GroupRecord &group,
                                                   QWidget *parent)
    : Page(parent)
    , services(appServices)
    , record(group)
    , name(new TextField)
    , description(new TextField)
    , mode(ShownValue("mode"))
    , members(new QListWidget)
    , remove(MakeButton<QPushButton>(tr("Remove user"), "removeMember"))
{
    name->setObjectName(u"name"_s);
    description->setObjectName(u"description"_s);
    auto *form = new QFormLayout;
    form->addRow(LabelFor(tr("Name:"), *name), name);
    form->addRow(LabelFor(tr("Description:"), *description), description);
    form->addRow(LabelFor(tr("Access type:"), *mode), mode);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(MakeMembers());
}

QWidget *CAdministratorGroupPPage::MakeMembers()
{
    SetNames(*members, u"members"_s, tr("Members"));
    members->setUniformItemSizes(true);
    auto *add = MakeButton<QPushButton>(tr("Add user to the group..."), "addMember");
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto *box = new QGroupBox(tr("Members"));
    auto *column = new QVBoxLayout(box);
    column->addWidget(members);
    column->addLayout(buttons);
    connect(add, &QPushButton::clicked, this, &CAdministratorGroupPPage::AddMembers);
    connect(remove, &QPushButton::clicked, this, &CAdministratorGroupPPage::RemoveMember);
    connect(members, &QListWidget::itemSelectionChanged, remove, [this] {
        remove->setEnabled(!members->selectedItems().isEmpty());
    });
    return box;
}

QString CAdministratorGroupPPage::Title() const
{
    return tr("General");
}

void CAdministratorGroupPPage::Load()
{
    name->setText(record.draft.name);
    description->setText(record.draft.description);
    ShowMembers();
}

void CAdministratorGroupPPage::Activate()
{
    mode->setText(ModeName(record.draft.mode));
}

void CAdministratorGroupPPage::Collect()
{
    const QString typed = name->text();
    const bool isTouched = typed != record.base.name; // what is not stays as it is stored
    record.draft.name = isTouched ? typed.trimmed() : typed;
    record.draft.description = description->text();
}

void CAdministratorGroupPPage::ShowMembers()
{
    members->clear();
    for (const Member &member : record.members.Listed()) {
        new QListWidgetItem(IconOf(Picture::User), member.name, members);
    }
    remove->setEnabled(false);
}

void CAdministratorGroupPPage::AddMembers()
{
    auto candidates = Await(services,
                            this,
                            tr("Reading the users of other groups..."),
                            [members = record.members] { return ReadCandidates(members); });
    if (!candidates) {
        TellUnread(
            services, tr("The users of other groups could not be read."), candidates.error());
        return;
    }
    AddMemberDialog dialog(*std::move(candidates), this);
    if (dialog.exec() == QDialog::Accepted) {
        Add(dialog.Chosen());
    }
}

void CAdministratorGroupPPage::Add(const std::vector<Member> &chosen)
{
    for (const Member &member : chosen) {
        if (!record.members.Add(member)) {
            Complain(services.prompt,
                     tr("A group's page holds at most %1 users. The others were not added.")
                         .arg(MemberTable::kMost));
            break;
        }
    }
    ShowMembers();
}

void CAdministratorGroupPPage::RemoveMember()
{
    const auto selected = members->selectedItems();
    if (!selected.isEmpty() && services.prompt.Ask(tr("Move user out of this group?"))) {
        record.members.Remove(static_cast<size_t>(members->row(selected.first())));
        ShowMembers();
    }
}
