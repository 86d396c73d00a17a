// The settings as files, for a backup: each key's file by its path below the configuration folder.
#pragma once

#include "upkeep/told.h"

#include <QByteArray>
#include <QMap>

using SettingsFiles = QMap<QString, QByteArray>;

// Every key's file of the folder. A folder without any is a failure, as is a file or a folder
// in it that cannot be read.
[[nodiscard]] Told<SettingsFiles> ReadSettingsFiles(const QString &folder);

// Why the files may not be written there: one of them is there already and says something else.
[[nodiscard]] Told<void> MayWriteSettings(const QString &folder, const SettingsFiles &files);

// Writes them: new folders with mode 0770 and new files with 0660 where the folder's group may write in
// it, else with 0750 and 0640.
[[nodiscard]] Told<void> WriteSettingsFiles(const QString &folder, const SettingsFiles &files);
