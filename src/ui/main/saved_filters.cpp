#include "ui/main/saved_filters.h"

#include <QCollator>
#include <QSettings>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

// A map of names to texts: a name may have characters that part keys.
const QString kKey = u"filters"_s;

const QString kOrganization = u"Tollbrook"_s;
const QString kProgram = u"Administrator"_s;

// On the disk when this returns.
bool Change(const std::function<void(QVariantMap &filters)> &change)
{
    QSettings settings(kOrganization, kProgram);
    QVariantMap filters = settings.value(kKey).toMap();
    change(filters);
    settings.setValue(kKey, filters);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QVariantMap Filters()
{
    return QSettings(kOrganization, kProgram).value(kKey).toMap();
}

} // namespace

QStringList saved_filters::Names()
{
    QStringList names = Filters().keys();
    std::ranges::sort(names, [collator = QCollator()](const QString &one, const QString &other) {
        return collator.compare(one, other) < 0;
    });
    return names;
}

QString saved_filters::TextOf(const QString &name)
{
    return Filters().value(name).toString();
}

bool saved_filters::Save(const QString &name, const QString &text)
{
    return Change([&](QVariantMap &filters) { filters.insert(name, text); });
}

bool saved_filters::Remove(const QString &name)
{
    return Change([&](QVariantMap &filters) { filters.remove(name); });
}
