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
    , allow(MakeButton<QRadioButton>(tr("Allow protocols"), "allow"))
    , disallow(MakeButton<QRadioButton>(tr("Disallow protocols"), "disallow"))
    , selectedList(MakeList("selected"))
    , availableList(MakeList("available"))
{
    auto *box = new QGroupBox(tr("Protocols"));
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
    auto *select = MakeButton<QPushButton>(u"<<"_s, "select", tr("Select the protocol"));
    auto *release = MakeButton<QPushButton>(u">>"_s, "release", tr("Take the protocol back"));
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
    grid->addWidget(LabelFor(tr("Selected"), *selectedList), 0, 0);
    grid->addWidget(LabelFor(tr("Available"), *availableList), 0, 2);
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
    return tr("Protocols");
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
