// What whoever runs the console may do.
#pragma once

#include <QString>
#include <QStringList>

// True for a member of the group tollbrook-view who is not in the group tollbrook as well: such a person
// looks at everything and changes nothing. Never for root.
[[nodiscard]] bool MayOnlyLook();

// The same of somebody in these groups.
[[nodiscard]] bool MayOnlyLook(bool isRoot, const QStringList &groups);

// What such a person is told who tries to change something.
[[nodiscard]] QString OnlyLooksText();
