#include "ui/main/saved_filters.h"

#include "ui/common/window_memory.h"

#include <QCollator>
#include <QVariantMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A map of names to texts: a name may have characters that part keys.
const QString kKey = u"filters"_s;

QVariantMap Filters()
{
    return Remembered(kKey).toMap();
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
    QVariantMap filters = Filters();
    filters.insert(name, text);
    return Remember(kKey, filters);
}

bool saved_filters::Remove(const QString &name)
{
    QVariantMap filters = Filters();
    filters.remove(name);
    return Remember(kKey, filters);
}
