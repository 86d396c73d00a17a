#include "access/access_marks.h"

AccessState PictureOf(const AccessMarks &marks)
{
    if (marks.timeAccess != marks.timeBlocked) {
        return AccessState::OutsideAllowedTime;
    }
    return Denies(MeaningOf(marks.block)) ? AccessState::Blocked : AccessState::Allowed;
}
