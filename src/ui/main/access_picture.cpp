#include "ui/main/access_picture.h"

#include "access/access_words.h"
#include "ui/common/icons.h"

namespace {

Picture PictureFor(AccessState access)
{
    switch (access) {
    case AccessState::Allowed:
        return Picture::AccessAllowed;
    case AccessState::Blocked:
        return Picture::AccessBlocked;
    case AccessState::OutsideAllowedTime:
        break;
    }
    return Picture::OutsideAllowedTime;
}

} // namespace

QVariant AccessCellData(AccessState access, int role)
{
    switch (role) {
    case Qt::DecorationRole:
        return IconOf(PictureFor(access));
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return StateText(access);
    default:
        return {};
    }
}
