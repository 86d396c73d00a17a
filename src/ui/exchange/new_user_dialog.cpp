#include "ui/exchange/new_user_dialog.h"

#include "access/access_mode.h"
#include "app/perform.h"
#include "app/waiting.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/ip_address_field.h"
#include "ui/common/text_field.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

NewUserDialog::NewUserDialog(const AppServices &appServices,
                             const QList<NamedGroup> &groups,
                             ImportContext importContext,
                             QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , context(std::move(importContext))
    , name(new TextField)
    , group(new QComboBox)
    , ip(new IpAddressField(tr("IP address")))
    , mac(new TextField)
{
    setObjectName(u"newUserDialog"_s);
    setWindowTitle(tr("New user"));
    name->setObjectName(u"name"_s);
    name->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    group->setObjectName(u"group"_s);
    for (const NamedGroup &each : groups) {
        group->addItem(each.name, each.groupId.value);
        if (each.groupId == kEverybodyGroup) {
            group->setCurrentIndex(group->count() - 1);
        }
    }
    ip->setObjectName(u"ip"_s);
    ip->setMaximumWidth(2 * fontMetrics().horizontalAdvance(u"000.000.000.000"_s));
    mac->setObjectName(u"mac"_s);
    auto *profile = new QLabel(
        tr("The user gets the access type \"%1\" and what else the options say of new users. Its "
           "properties can be changed afterwards.")
            .arg(AccessTypeText(context.profile.mode)));
    profile->setObjectName(u"profile"_s);
    profile->setTextFormat(Qt::PlainText);
    profile->setWordWrap(true);
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("User &name:"), *name), name);
    form->addRow(LabelFor(tr("&Group:"), *group), group);
    form->addRow(LabelFor(tr("&IP address:"), *ip), ip);
    form->addRow(LabelFor(tr("&MAC address:"), *mac), mac);
    form->addRow(profile);
    form->addRow(OkAndCancel(*this));
}

bool NewUserDialog::IsComplete()
{
    if (name->text().trimmed().isEmpty()) {
        Refuse(services.prompt, *name, tr("Please enter a user name"));
        return false;
    }
    if (!ip->IsBlank() && !ip->IsComplete()) {
        Complain(services.prompt, tr("Please enter full IP address"));
        ip->FocusWhatIsMissing();
        return false;
    }
    if (ip->IsBlank() && mac->text().trimmed().isEmpty()) {
        Complain(services.prompt,
                 tr("Please enter an IP address or a MAC address: the user is known by it"));
        ip->FocusWhatIsMissing();
        return false;
    }
    return true;
}

NewUser NewUserDialog::Entered() const
{
    return {.name = name->text(),
            .group = NamedGroup {group->currentText(), GroupId {group->currentData().toUInt()}},
            .ip = ip->Address(),
            .mac = mac->text()};
}

void NewUserDialog::accept()
{
    if (!IsComplete()) {
        return;
    }
    const QString what = tr("Adding the user...");
    const auto plan = Await(services, this, what, [user = Entered(), known = context] {
        return PlanNewUser(user, known);
    });
    if (!plan) {
        TellUnread(services, tr("The user was not added."), plan.error());
        return;
    }
    if (plan->isNameTaken) {
        Refuse(
            services.prompt, *name, tr("There is a user of this name. Please enter another one"));
    } else if (!plan->refusal.isEmpty()) {
        Complain(services.prompt, plan->refusal);
    } else if (Perform(services, this, what, AddUserAction(*plan, std::make_shared<UserId>()))) {
        Dialog::accept();
    }
}

void OpenNewUser(const AppServices &services, QWidget *parent)
{
    const QString notAdded = NewUserDialog::tr("No user can be added.");
    const auto context = ReadImportContext(services.settings);
    if (!context) {
        services.prompt.Tell(notAdded + u"\n\n" + context.error(), Prompt::Icon::Error);
        return;
    }
    auto groups =
        Await(services, parent, NewUserDialog::tr("Reading the groups..."), ReadGroupNames);
    if (!groups) {
        TellUnread(services, notAdded, groups.error());
        return;
    }
    std::ranges::sort(*groups, {}, [](const NamedGroup &each) { return each.name.toCaseFolded(); });
    NewUserDialog(services, *groups, *context, parent).exec();
}
