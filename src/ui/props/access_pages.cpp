#include "ui/props/access_pages.h"

#include "ui/common/controls.h"
#include "ui/props/access_type_box.h"
#include "ui/props/block_box.h"
#include "ui/props/why_lines.h"

#include <QCheckBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CAdministratorUserPAccess::CAdministratorUserPAccess(const AppServices &appServices,
                                                     UserRecord &user,
                                                     QWidget *parent)
    : Page(parent)
    , services(appServices)
    , record(user)
    , type(new AccessTypeBox(AccessTypeBox::Options::TrafficAndTime))
    , block(new BlockBox(tr("Block user imminently")))
    , authentication(MakeButton<QCheckBox>(tr("Require authentication"), "authentication"))
    , why(new WhyLines(WhyLines::Commands::LeftOut))
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(type);
    column->addWidget(block);
    column->addWidget(authentication);
    column->addWidget(why, 1);
    connect(type, &AccessTypeBox::TypeChanged, this, [this] { record.account.Clear(); });
    connect(type, &AccessTypeBox::Changed, this, &CAdministratorUserPAccess::StageMode);
}

QString CAdministratorUserPAccess::Title() const
{
    return tr("Access");
}

void CAdministratorUserPAccess::Load()
{
    type->Show(ChoiceFor(record.draft.mode));
    block->Show(record.block);
    authentication->setChecked(record.draft.authRequired);
}

void CAdministratorUserPAccess::Activate()
{
    services.database.Start(
        this, WhyAccessOf(services, record.userId), [this](const Result<WhyAnswer> &answer) {
            if (answer && answer->why) {
                why->Show(*answer->why, PageDifferenceText(answer->why->findings));
            } else {
                why->ShowText(WhyNot(answer));
            }
        });
}

void CAdministratorUserPAccess::StageMode()
{
    record.draft.mode = ModeFor(type->Choice()).value_or(record.draft.mode);
}

bool CAdministratorUserPAccess::Leave()
{
    if (ModeFor(type->Choice())) {
        return true;
    }
    services.prompt.Tell(tr("Please choose one or both corporate type options"),
                         Prompt::Icon::Warning,
                         tr("Tollbrook"));
    return false;
}

void CAdministratorUserPAccess::Collect()
{
    block->Collect(record.block);
    record.draft.authRequired = authentication->isChecked();
}

CAdministratorGroupPAccess::CAdministratorGroupPAccess(GroupRecord &group, QWidget *parent)
    : Page(parent)
    , record(group)
    , type(new AccessTypeBox(AccessTypeBox::Options::None))
    , block(new BlockBox(tr("Block group imminently")))
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(type);
    column->addWidget(block);
    column->addStretch();
    connect(type, &AccessTypeBox::TypeChanged, this, &CAdministratorGroupPAccess::StageMode);
}

QString CAdministratorGroupPAccess::Title() const
{
    return tr("Access");
}

void CAdministratorGroupPAccess::Load()
{
    type->Show(ChoiceFor(record.draft.mode));
    block->Show(record.block);
}

void CAdministratorGroupPAccess::StageMode()
{
    record.account.Clear();
    record.draft.mode = ModeFor(type->Choice()).value_or(record.draft.mode);
}

void CAdministratorGroupPAccess::Collect()
{
    block->Collect(record.block);
}
