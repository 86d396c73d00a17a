// The bound values as the driver is given them: the session's side of parameters.h.
#pragma once

#include "db/translation.h"

namespace bound_parameters {

// What is bound, for the translation of the statement.
[[nodiscard]] const ParameterKinds &Kinds();

// Makes of the values what the translated statement compares with; once for each statement.
void Change(const ParameterChanges &changes);

// Hands the values to the driver for the next execution on the statement handle.
void HandOver(void *statement, const Dialect &dialect);

// Forgets them: the next statement binds its own.
void Forget();

} // namespace bound_parameters
