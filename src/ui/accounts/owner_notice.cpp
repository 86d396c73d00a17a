#include "ui/accounts/owner_notice.h"

#include "ui/common/icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

using namespace Qt::StringLiterals;

QWidget *OwnerHeading(const Owner &owner, QWidget *parent)
{
    auto *heading = new QWidget(parent);
    auto *picture = new QLabel(heading);
    const int size = heading->style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(IconOf(owner.IsUser() ? Picture::User : Picture::Group).pixmap(size));
    auto *text = new QLabel(
        (owner.IsUser() ? u"User: "_s : u"Group: "_s) + NameOf(owner).value_or(QString()), heading);
    text->setTextFormat(Qt::PlainText);
    text->setObjectName(u"owner"_s);
    auto *layout = new QHBoxLayout(heading);
    layout->setContentsMargins({});
    layout->addWidget(picture);
    layout->addWidget(text, 1);
    return heading;
}

void TellOwnerIsGone(Prompt &prompt, const Owner &owner)
{
    prompt.Tell(owner.IsUser() ? u"This user is no longer in the database. Nothing was changed"_s
                               : u"This group is no longer in the database. Nothing was changed"_s,
                Prompt::Icon::Warning);
}
