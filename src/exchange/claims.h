// What may be had by one user only: a name in the file, an address, a login.
#pragma once

#include "exchange/import_plan.h"

// Refuses the rows that name a user whom another row names too, and those whose user would have an IP
// address, MAC address or login that another user has once all rows that are not refused are written.
// What a row gives up another one may take.
void RefuseDoubleClaims(std::vector<ImportRow> &rows, const StoredUsers &stored);
