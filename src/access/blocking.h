// Blocking and unblocking of users and groups, in the database and at the service.
#pragma once

#include "service/service_link.h"

#include <QtGlobal>

// `link` is null while the console holds no connection. The service is told before the row changes.
// True when it was told.
bool BlockUser(const ServiceLink *link, quint32 userId, quint32 reason);
bool UnblockUser(const ServiceLink *link, quint32 userId); // the stored reason stays as it was

// The group's row, the rows of all its members, and word to the service of each member.
void BlockGroup(const ServiceLink *link, quint32 groupId, quint32 reason);
void UnblockGroup(const ServiceLink *link, quint32 groupId);
