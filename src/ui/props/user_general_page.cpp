#include "ui/props/user_general_page.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/text_field.h"
#include "ui/props/address_dialogs.h"
#include "ui/props/change_group_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

// Beside an address that the sheet will store.
QLabel *ChangedMark(const char *objectName)
{
    auto *mark = new QLabel;
    mark->setObjectName(QLatin1String(objectName));
    mark->setMinimumWidth(
        mark->fontMetrics().horizontalAdvance(CAdministratorUserPPage::tr("(Changed)")));
    return mark;
}

QWidget *InOneRow(const QList<QWidget *> &widgets)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    for (QWidget *widget : widgets) {
        layout->addWidget(widget);
    }
    return row;
}

} // namespace

CAdministratorUserPPage::CAdministratorUserPPage(const AppServices &appServices,
                                                 UserRecord &user,
                                                 QWidget *parent)
    : Page(parent)
    , services(appServices)
    , record(user)
    , fullName(new TextField)
    , description(new TextField)
    , userName(ShownValue("userName"))
    , login(ShownValue("login"))
    , workstation(ShownValue("workstation"))
    , kind(ShownValue("kind"))
    , ipAddress(ShownValue("ipAddress"))
    , macAddress(ShownValue("macAddress"))
    , group(ShownValue("group"))
    , ipChanged(ChangedMark("ipChanged"))
    , macChanged(ChangedMark("macChanged"))
{
    fullName->setObjectName(u"fullName"_s);
    description->setObjectName(u"description"_s);
    auto *changeIp = MakeButton<QPushButton>(tr("Change..."), "changeIp", tr("Change IP address"));
    auto *changeMac =
        MakeButton<QPushButton>(tr("Change..."), "changeMac", tr("Change MAC address"));
    auto *changeGroup = MakeButton<QPushButton>(tr("Change group..."), "changeGroup");
    auto *form = new QFormLayout(this);
    form->addRow(LabelFor(tr("Full name:"), *fullName), fullName);
    form->addRow(LabelFor(tr("Description:"), *description), description);
    AddFacts(*form);
    AddAddress(*form, tr("IP Address:"), ipAddress, ipChanged, changeIp);
    AddAddress(*form, tr("MAC Address:"), macAddress, macChanged, changeMac);
    form->addRow(LabelFor(tr("Group:"), *group), InOneRow({group, changeGroup}));
    connect(changeIp, &QPushButton::clicked, this, &CAdministratorUserPPage::ChangeIp);
    connect(changeMac, &QPushButton::clicked, this, &CAdministratorUserPPage::ChangeMac);
    connect(changeGroup, &QPushButton::clicked, this, &CAdministratorUserPPage::ChangeGroup);
}

void CAdministratorUserPPage::AddFacts(QFormLayout &form)
{
    form.addRow(LabelFor(tr("Username:"), *userName), userName);
    form.addRow(LabelFor(tr("Login:"), *login), login);
    form.addRow(LabelFor(tr("Workstation:"), *workstation), workstation);
    form.addRow(LabelFor(tr("User kind:"), *kind), kind);
}

void CAdministratorUserPPage::AddAddress(
    QFormLayout &form, const QString &label, QLineEdit *field, QLabel *changed, QPushButton *button)
{
    form.addRow(LabelFor(label, *field), InOneRow({field, changed, button}));
}

QString CAdministratorUserPPage::Title() const
{
    return tr("General");
}

void CAdministratorUserPPage::Load()
{
    fullName->setText(record.draft.fullName);
    description->setText(record.draft.description);
    userName->setText(record.draft.userName);
    login->setText(record.draft.login);
    workstation->setText(record.draft.workstation);
    kind->setText(record.draft.guest ? tr("Guest") : tr("Standard"));
    ShowDraft();
}

void CAdministratorUserPPage::ShowDraft()
{
    ipAddress->setText(record.draft.ipAddress);
    macAddress->setText(record.draft.macAddress);
    group->setText(record.draft.groupName);
    const auto mark = [](bool changed) { return changed ? tr("(Changed)") : QString(); };
    ipChanged->setText(mark(record.draft.ipAddress != record.base.ipAddress));
    macChanged->setText(mark(record.draft.macAddress != record.base.macAddress));
    ipAddress->setAccessibleDescription(ipChanged->text());
    macAddress->setAccessibleDescription(macChanged->text());
}

void CAdministratorUserPPage::Collect()
{
    record.draft.fullName = fullName->text();
    record.draft.description = description->text();
}

void CAdministratorUserPPage::ChangeIp()
{
    ChangeIpDialog dialog(services.prompt, record.draft.ipAddress, this);
    connect(&dialog, &ChangeIpDialog::Entered, this, [this](Ipv4 address) {
        record.draft.ipAddress = DottedText(address);
        ShowDraft();
    });
    dialog.exec();
}

void CAdministratorUserPPage::ChangeMac()
{
    ChangeMacDialog dialog(services.prompt, record.draft.macAddress, this);
    if (dialog.exec() == QDialog::Accepted) {
        record.draft.macAddress = dialog.Address();
        ShowDraft();
    }
}

void CAdministratorUserPPage::ChangeGroup()
{
    if (const auto chosen = ChooseGroupInSheet(services, record.draft.groupId, this)) {
        record.draft.groupId = chosen->groupId;
        record.draft.groupName = chosen->name;
        ShowDraft();
    }
}
