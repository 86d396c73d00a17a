// "Options": the settings that the accounting service reads.
#pragma once

#include "startup/app_services.h"

#include <functional>

class QWidget;

// Opens the dialog on what the store and the database hold; what of it could not be read is told first.
// OK writes everything back; while something could not be written, which is told, the dialog stays open
// with everything that was typed. True when everything was written. `refreshPanes` is called at the end
// when anything may have been: the panes then show something else.
bool OpenOptions(const AppServices &services,
                 QWidget *parent,
                 const std::function<void()> &refreshPanes = {});
