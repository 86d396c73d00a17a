#include "startup/rights.h"

#include <QCoreApplication>

#include <algorithm>
#include <grp.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kEntryBytes = 65536; // of a group with many members

// Empty for a group without a name.
QString NameOf(gid_t id)
{
    std::vector<char> buffer(kEntryBytes);
    group entry {};
    group *found = nullptr;
    const int result = getgrgid_r(id, &entry, buffer.data(), buffer.size(), &found);
    return result == 0 && found != nullptr ? QString::fromLocal8Bit(found->gr_name) : QString();
}

QStringList GroupsOfProcess()
{
    std::vector<gid_t> ids(static_cast<size_t>(std::max(0, getgroups(0, nullptr))));
    const int count = getgroups(static_cast<int>(ids.size()), ids.data());
    ids.resize(static_cast<size_t>(std::max(0, count)));
    ids.push_back(getegid());
    QStringList names;
    for (const gid_t id : ids) {
        names << NameOf(id);
    }
    return names;
}

} // namespace

bool MayOnlyLook()
{
    return MayOnlyLook(geteuid() == 0, GroupsOfProcess());
}

bool MayOnlyLook(bool isRoot, const QStringList &groups)
{
    return !isRoot && groups.contains(u"tollbrook-view"_s) && !groups.contains(u"tollbrook"_s);
}

QString OnlyLooksText()
{
    return QCoreApplication::translate(
        "Rights",
        "You may look at everything and change nothing: for this one must be in the group "
        "tollbrook.");
}
