// Blocking and unblocking of users and groups, in the database and at the service.
#pragma once

#include "db/value_codes.h"
#include "service/service_link.h"

// `link` is null while the console holds no connection. The service is told before the row changes.
// True when it was told.
bool BlockUser(const ServiceLink *link, UserId userId, BlockReason reason);
bool UnblockUser(const ServiceLink *link, UserId userId); // the stored reason stays as it was

// The group's row, the rows of all its members, and word to the service of each member.
void BlockGroup(const ServiceLink *link, GroupId groupId, BlockReason reason);
void UnblockGroup(const ServiceLink *link, GroupId groupId);
