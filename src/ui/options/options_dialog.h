// "Options": the settings that the accounting service reads.
#pragma once

#include <functional>

class QWidget;

// Opens the dialog on what the store and the database hold; OK writes everything back. True after
// OK: the panes then show something else. `refreshPanes` is called when a user is removed because
// its address was excluded, and at the end.
bool OpenOptions(QWidget *parent, const std::function<void()> &refreshPanes = {});
