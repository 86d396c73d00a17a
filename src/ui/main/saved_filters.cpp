#include "ui/main/saved_filters.h"

#include "base/text.h"
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

QStringList saved_filters::NamesLike(const QString &name)
{
    QStringList names = Names();
    names.removeIf([key = NameKey(name)](const QString &each) { return NameKey(each) != key; });
    return names;
}

bool saved_filters::Save(const QString &name, const QString &text)
{
    QVariantMap filters = Filters();
    for (const QString &replaced : NamesLike(name)) {
        filters.remove(replaced);
    }
    filters.insert(name, text);
    return Remember(kKey, filters);
}

bool saved_filters::Remove(const QString &name)
{
    QVariantMap filters = Filters();
    filters.remove(name);
    return Remember(kKey, filters);
}
