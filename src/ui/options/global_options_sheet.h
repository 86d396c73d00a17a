// The older sheet "Options", which edits a part of the same settings.
#pragma once

#include "startup/app_services.h"

#include <functional>

class QWidget;

// As OpenOptions.
bool OpenGlobalOptions(const AppServices &services,
                       QWidget *parent,
                       const std::function<void()> &refreshPanes = {});
