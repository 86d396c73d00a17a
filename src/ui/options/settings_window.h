// What the windows of the settings have in common: how they read, and how their OK saves.
#pragma once

#include "admin/edited_settings.h"
#include "admin/protocol_table.h"
#include "admin/save_report.h"
#include "db/failure.h"
#include "startup/app_services.h"

#include <functional>
#include <optional>
#include <utility>

class QWidget;
class Sheet;

// Tells in one message which files could not be read; nothing when all were.
void TellUnreadSettings(const AppServices &services, const QList<SettingsFailure> &failures);

// The settings that were loaded, once it was told which of them could not be read.
template <typename Settings>
[[nodiscard]] Settings Told(const AppServices &services, Loaded<Settings> loaded)
{
    TellUnreadSettings(services, loaded.failures);
    return std::move(loaded.settings);
}

// The protocols as `load` reads them on the session's thread. Nothing when they could not be read, which
// is told: the window then opens without them.
[[nodiscard]] std::optional<ProtocolTable>
AwaitProtocols(const AppServices &services, QWidget *parent, Result<ProtocolTable> (*load)());

// What stands on a page in place of protocols that could not be read.
[[nodiscard]] QWidget *UnreadProtocolsNote();

// Runs `save` on the session's thread while `parent` waits, asks its questions, and runs it again with
// the answers. True when everything was written. Else what was not is told in one message, except a
// person's own No, and the window stays open: the next save writes the rest. `save` captures by value; of
// the services it may keep the settings alone, which outlive it.
[[nodiscard]] bool PerformSave(const AppServices &services,
                               QWidget *parent,
                               const std::function<SaveReport(const Answers &)> &save);

// Runs the sheet, whose OK is `save`, until everything was written or it is closed; true for the former.
// `refreshPanes`, which may be empty, is called at the end when anything may have been written.
[[nodiscard]] bool RunSettingsSheet(Sheet &sheet,
                                    const std::function<bool()> &save,
                                    const std::function<void()> &refreshPanes);
