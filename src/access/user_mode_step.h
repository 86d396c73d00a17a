// The part of a user's apply step that stores the accounting mode with its limits or price.
#pragma once

#include "access/user_record.h"
#include "service/service_link.h"

// A block is lifted, with word to the service, when it is not the administrator's own and the new
// mode leaves something to use: no control at all, a raised limit that is above what was used or is
// extended by an open credit, or an open pre-paid credit that is not used up.
void ApplyUserMode(const UserRecord &record, const ServiceLink *link);
