#include "admin/edited_settings.h"

void WriteInteger(KeyEditor &key, const TextValue &value, qint32 base, qint32 draft)
{
    if (draft != base || !key.Has(value)) {
        key.WriteInteger(value, draft);
    }
}

void WriteFlag(KeyEditor &key, const TextValue &value, bool base, bool draft)
{
    if (draft != base || !key.Has(value)) {
        key.WriteFlag(value, draft);
    }
}

void WriteText(KeyEditor &key, const TextValue &value, const QString &base, const QString &draft)
{
    if (draft != base || !key.Has(value)) {
        key.WriteText(value, draft);
    }
}
