// Limits of the session that a test can wait for.
#pragma once

#include "db/session_limits.h"

// In force for the sessions that are opened and used while it lives.
class LimitsScope
{
public:
    explicit LimitsScope(const SessionLimits &limits) { SetLimits(limits); }
    ~LimitsScope() { SetLimits({}); }
    LimitsScope(const LimitsScope &) = delete;
    LimitsScope &operator=(const LimitsScope &) = delete;
};
