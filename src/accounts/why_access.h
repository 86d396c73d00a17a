// Why a user may send or may not, read from the database and the settings and put in words.
#pragma once

#include "access/access_words.h"
#include "access/user_rules.h"
#include "config/config_store.h"

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

// Since when a user is blocked, where somebody has kept that: it is not in the database.
using BlockedSince = std::function<std::optional<QDateTime>(const UserRules &rules)>;

// As it stands in this moment. Runs on the thread of the session.
[[nodiscard]] Result<WhyAnswer>
ReadWhyAccess(const ConfigStore &settings, UserId userId, const BlockedSince &blockedSince = {});

// What a person is told in the place of what was not read.
[[nodiscard]] QString WhyNot(const Result<WhyAnswer> &answer);
