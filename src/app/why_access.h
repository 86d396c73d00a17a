// Why a user may send or not, read for a window.
#pragma once

#include "access/access_words.h"
#include "access/user_rules.h"
#include "config/settings_failure.h"
#include "startup/app_services.h"

#include <functional>
#include <optional>

struct WhyAccess
{
    QString userName;
    GroupId groupId;
    AccessFindings findings;
    std::vector<WhyLine> lines;
};

struct WhyAnswer
{
    std::optional<SettingsFailure> unread; // the price or the currency could not be read
    std::optional<WhyAccess> why; // nothing for a user that is gone, too
};

// Reads it in this moment. To be run on the session's thread.
[[nodiscard]] std::function<Result<WhyAnswer>()> WhyAccessOf(const AppServices &services,
                                                             UserId userId);

// What a window says in the place of what it has not got.
[[nodiscard]] QString WhyNot(const Result<WhyAnswer> &answer);
