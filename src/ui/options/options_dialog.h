// "Options": the settings that the accounting service reads.
#pragma once

#include "startup/app_services.h"

#include <functional>

class QWidget;

// Opens the dialog on what the store and the database hold; OK writes everything back. True after
// OK: the panes then show something else. `refreshPanes` is called when a user is removed because
// its address was excluded, and at the end.
bool OpenOptions(const AppServices &services,
                 QWidget *parent,
                 const std::function<void()> &refreshPanes = {});
