// Settings that a window edits: as they were read, and as they are to become. What a person did not
// touch is the same in both, and stays as the store holds it when the rest is written.
#pragma once

#include "config/config_store.h"

#include <QList>

// `base` is what the window showed first, `draft` what it shows at its OK.
template <typename Settings>
struct Edited
{
    Settings base;
    Settings draft;
};

// Settings of several keys. Those of a key that could not be read count as missing, and are told.
template <typename Settings>
struct Loaded
{
    Settings settings;
    QList<SettingsFailure> failures;
};

// Hands a key's values to `take`; a key that could not be read is added to the failures instead.
template <typename Take>
void TakeGroup(const tl::expected<KeyReader, SettingsFailure> &values,
               QList<SettingsFailure> &failures,
               const Take &take)
{
    if (values) {
        take(*values);
    } else if (!failures.contains(values.error())) {
        failures.append(values.error());
    }
}

// Write what was touched, and what the store does not hold; anything else keeps the text that stands
// there now.
void WriteInteger(KeyEditor &key, const TextValue &value, qint32 base, qint32 draft);
void WriteFlag(KeyEditor &key, const TextValue &value, bool base, bool draft);
void WriteText(KeyEditor &key, const TextValue &value, const QString &base, const QString &draft);
