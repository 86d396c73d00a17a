// Whether the service could work here, told line by line: what `tollbrooksvc --check` prints.
#pragma once

#include "config/config_store.h"

#include <QStringList>

struct SelfCheck
{
    QStringList good; // what is as it should be
    QStringList warnings; // what works, though perhaps not as meant
    QStringList problems; // what keeps the service from working
};

// Changes nothing, in the kernel or elsewhere. Waits for the database.
[[nodiscard]] SelfCheck CheckSelf(const ConfigStore &store);
