// What the session sends to the driver: the program's own SQLBindParameter and SQLExecDirect stand
// before those of the driver manager, so that no product code knows of it.
#pragma once

#include "support/bare_session.h"

#include <functional>

// The statements that `work` sends on this thread, as the driver gets them, with their values.
[[nodiscard]] std::vector<BareStatement> SentBy(const std::function<void()> &work);
