// How both lists show an access state: by a picture, and in words for whom a picture says nothing.
#pragma once

#include "access/access_marks.h"

#include <QVariant>

// For the decoration, the tool tip and the accessible text of a cell; nothing for other roles.
[[nodiscard]] QVariant AccessCellData(AccessState access, int role);
