#include "ui/main/access_picture.h"

#include "ui/common/icons.h"

using namespace Qt::StringLiterals;

namespace {

QString Words(AccessState access)
{
    switch (access) {
    case AccessState::Allowed:
        return u"Access is allowed"_s;
    case AccessState::Blocked:
        return u"Access is blocked"_s;
    case AccessState::OutsideAllowedTime:
        break;
    }
    return u"Outside the allowed time"_s;
}

Picture PictureOf(AccessState access)
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
        return IconOf(PictureOf(access));
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return Words(access);
    default:
        return {};
    }
}
