// Filters that were saved under a name, for the user of the desktop.
#pragma once

#include <QString>
#include <QStringList>

namespace saved_filters {

// In the order of the alphabet.
[[nodiscard]] QStringList Names();

// What was typed; empty for a name that there is not.
[[nodiscard]] QString TextOf(const QString &name);

// Those that are called so by NameKey.
[[nodiscard]] QStringList NamesLike(const QString &name);

// Takes the place of all that are called so. False when it could not be kept.
[[nodiscard]] bool Save(const QString &name, const QString &text);
[[nodiscard]] bool Remove(const QString &name);

} // namespace saved_filters
