#include "ui/props/protocol_page.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QListWidget *MakeList(const char *objectName)
{
    auto *list = new QListWidget;
    list->setObjectName(QLatin1String(objectName));
    return list;
}

} // namespace

ProtocolPage::ProtocolPage(ProtocolChoice &staged, QWidget *parent)
    : Page(parent)
    , choice(staged)
    , allow(MakeButton<QRadioButton>(u"Allow protocols"_s, "allow"))
    , disallow(MakeButton<QRadioButton>(u"Disallow protocols"_s, "disallow"))
    , selectedList(MakeList("selected"))
    , availableList(MakeList("available"))
{
    auto *box = new QGroupBox(u"Protocols"_s);
    auto *inside = new QVBoxLayout(box);
    inside->addWidget(allow);
    inside->addWidget(disallow);
    inside->addWidget(MakeLists());
    auto *column = new QVBoxLayout(this);
    column->addWidget(box);
    connect(allow, &QRadioButton::toggled, this, [this](bool allowed) { choice.allow = allowed; });
}

QWidget *ProtocolPage::MakeLists()
{
    auto *select = MakeButton<QPushButton>(u"<<"_s, "select", u"Select the protocol"_s);
    auto *release = MakeButton<QPushButton>(u">>"_s, "release", u"Take the protocol back"_s);
    select->setToolTip(select->accessibleName());
    release->setToolTip(release->accessibleName());
    auto *between = new QVBoxLayout;
    between->addStretch();
    between->addWidget(select);
    between->addWidget(release);
    between->addStretch();
    auto *lists = new QWidget;
    auto *grid = new QGridLayout(lists);
    grid->setContentsMargins({});
    grid->addWidget(LabelFor(u"Selected"_s, *selectedList), 0, 0);
    grid->addWidget(LabelFor(u"Available"_s, *availableList), 0, 2);
    grid->addWidget(selectedList, 1, 0);
    grid->addLayout(between, 1, 1);
    grid->addWidget(availableList, 1, 2);
    connect(
        select, &QPushButton::clicked, this, [this] { Move(*availableList, *selectedList, true); });
    connect(release, &QPushButton::clicked, this, [this] {
        Move(*selectedList, *availableList, false);
    });
    return lists;
}

QString ProtocolPage::Title() const
{
    return u"Protocols"_s;
}

void ProtocolPage::Load()
{
    CheckOneOf({allow, disallow}, choice.allow ? allow : disallow);
    selectedList->clear();
    selectedList->addItems(choice.Names(true));
    availableList->clear();
    availableList->addItems(choice.Names(false));
}

void ProtocolPage::Move(QListWidget &from, QListWidget &to, bool selected)
{
    const auto chosen = from.selectedItems();
    if (chosen.isEmpty()) {
        return;
    }
    const QString name = chosen.first()->text();
    delete from.takeItem(from.row(chosen.first()));
    to.addItem(name);
    choice.Select(name, selected);
}

CAdministratorUserPProtocol::CAdministratorUserPProtocol(UserRecord &record, QWidget *parent)
    : ProtocolPage(record.protocols, parent)
{ }

CAdministratorGroupPProtocols::CAdministratorGroupPProtocols(GroupRecord &record, QWidget *parent)
    : ProtocolPage(record.protocols, parent)
{ }
