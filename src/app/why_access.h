// Why a user may send or not, read for a window.
#pragma once

#include "accounts/why_access.h"
#include "startup/app_services.h"

#include <functional>

// Reads it in this moment. To be run on the session's thread.
[[nodiscard]] std::function<Result<WhyAnswer>()> WhyAccessOf(const AppServices &services,
                                                             UserId userId);
