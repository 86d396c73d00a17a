#include "db/session_limits.h"

namespace {

SessionLimits limitsInForce;

}

const SessionLimits &Limits()
{
    return limitsInForce;
}

void SetLimits(const SessionLimits &limits)
{
    limitsInForce = limits;
}
