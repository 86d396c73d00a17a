#include "base/names_line.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostCharacters = 40; // of each name, so that the line fits on a small screen

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(NamesLine)
};

QString Shown(const QString &name)
{
    const QString oneLine = name.simplified();
    if (oneLine.isEmpty()) {
        return Words::tr("(no name)");
    }
    return oneLine.size() <= kMostCharacters ? oneLine
                                             : oneLine.first(kMostCharacters - 1) + u'\u2026';
}

} // namespace

QString NamesLine(const QStringList &names)
{
    return NamesLineOf(names, names.size());
}

QString NamesLineOf(const QStringList &firstNames, qsizetype count)
{
    QStringList shown;
    for (const QString &name : firstNames.first(std::min(firstNames.size(), kNamesOfLine))) {
        shown << Shown(name);
    }
    const QString line = shown.join(u", "_s);
    const qsizetype more = count - shown.size();
    return more == 0 ? line : Words::tr("%1 and %2 more").arg(line, QLocale().toString(more));
}
