#include "ui/accounts/owner_notice.h"

#include "accounts/credit.h"
#include "ui/common/heading_line.h"
#include "ui/common/icons.h"

#include <QCoreApplication>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(OwnerNotice)
};

} // namespace

HeadingLine *OwnerHeading(const Owner &owner, const QString &name, QWidget *parent)
{
    return new HeadingLine(IconOf(owner.IsUser() ? Picture::User : Picture::Group),
                           (owner.IsUser() ? Words::tr("User: ") : Words::tr("Group: ")) + name,
                           parent);
}

void TellOwnerIsGone(Prompt &prompt, const Owner &owner)
{
    prompt.Tell(OwnerIsGoneText(owner), Prompt::Icon::Warning);
}
