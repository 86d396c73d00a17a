// The older sheet "Options", which edits a part of the same settings.
#pragma once

#include <functional>

class QWidget;

// As OpenOptions.
bool OpenGlobalOptions(QWidget *parent, const std::function<void()> &refreshPanes = {});
