#include "ui/accounts/owner_notice.h"

#include "accounts/credit.h"
#include "ui/common/elided_label.h"
#include "ui/common/icons.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(OwnerNotice)
};

} // namespace

QWidget *OwnerHeading(const Owner &owner, const QString &name, QWidget *parent)
{
    auto *heading = new QWidget(parent);
    auto *picture = new QLabel(heading);
    const int size = heading->style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(IconOf(owner.IsUser() ? Picture::User : Picture::Group).pixmap(size));
    auto *text = new ElidedLabel(
        (owner.IsUser() ? Words::tr("User: ") : Words::tr("Group: ")) + name, heading);
    text->setObjectName(u"owner"_s);
    auto *layout = new QHBoxLayout(heading);
    layout->setContentsMargins({});
    layout->addWidget(picture);
    layout->addWidget(text, 1);
    return heading;
}

void TellOwnerIsGone(Prompt &prompt, const Owner &owner)
{
    prompt.Tell(OwnerIsGoneText(owner), Prompt::Icon::Warning);
}
