#include "reports/drill_down.h"

#include "db/query.h"
#include "reports/wording.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Detail
{
    int of; // the summary's row of the catalogue
    int row; // the detailed one's
    bool ofGroup = false;
};

constexpr std::array kDetails {Detail {0, 2},
                               Detail {1, 2},
                               Detail {3, 2},
                               Detail {4, 0, true},
                               Detail {6, 8},
                               Detail {7, 8},
                               Detail {9, 8},
                               Detail {12, 11}};

const Detail *DetailOf(int row)
{
    const auto *found = std::find_if(
        kDetails.begin(), kDetails.end(), [row](const Detail &each) { return each.of == row; });
    return found == kDetails.end() ? nullptr : found;
}

// Nothing when the layout has no such column, or the line no text there.
std::optional<QString> TextOf(const Layout &layout, const CellRow &line, QStringView column)
{
    for (qsizetype place = 0; place < layout.columns.size(); ++place) {
        if (layout.columns.at(place).name == column) {
            const auto *text = std::get_if<QString>(&line[static_cast<size_t>(place)]);
            return text != nullptr ? std::optional(*text) : std::nullopt;
        }
    }
    return std::nullopt;
}

template <typename IdType>
bool Admits(const KeptFilter<IdType> &filter, IdType id)
{
    return filter.effect == FilterEffect::None
        || filter.ids.contains(id) == (filter.effect == FilterEffect::Only);
}

Result<QList<UserId>> UsersNamed(const QString &name, const std::optional<QString> &address)
{
    const auto reader = [](const Row &row) { return row.Id<UserId>(1); };
    const auto ids = address
        ? ReadAll("SELECT user_id FROM users WHERE username = (?) AND ip_addr = (?)",
                  reader,
                  name,
                  *address)
        : ReadAll("SELECT user_id FROM users WHERE username = (?)", reader, name);
    return ids.map([](const auto &read) { return QList<UserId>(read.begin(), read.end()); });
}

Result<QList<GroupId>> GroupsNamed(const QString &name)
{
    return ReadAll(
               "SELECT group_id FROM groups WHERE name = (?)",
               [](const Row &row) { return row.Id<GroupId>(1); },
               name)
        .map([](const auto &read) { return QList<GroupId>(read.begin(), read.end()); });
}

// Only those of `ids` that the summary's filter admits, under the line's name.
template <typename IdType>
bool Narrow(KeptFilter<IdType> &filter, FilterScope &scope, QList<IdType> ids, const QString &name)
{
    ids.removeIf([&](IdType id) { return !Admits(filter, id); });
    filter = {FilterEffect::Only, ids};
    scope = {FilterEffect::Only, {name}};
    return !ids.isEmpty();
}

} // namespace

bool HasDetails(int row)
{
    return DetailOf(row) != nullptr;
}

Result<std::optional<ReportSelection>>
DetailBehind(const ReportSelection &summary, const Layout &layout, const CellRow &line)
{
    const Detail *detail = DetailOf(summary.row);
    const auto name = detail == nullptr
        ? std::nullopt
        : TextOf(layout, line, detail->ofGroup ? u"name" : u"username");
    if (!name) {
        return std::nullopt;
    }
    ReportSelection behind = summary;
    behind.row = detail->row;
    bool isAnybody = false;
    if (detail->ofGroup) {
        const auto ids = GroupsNamed(*name);
        if (!ids) {
            return tl::unexpected(ids.error());
        }
        isAnybody = Narrow(behind.groups, behind.groupScope, *ids, *name);
    } else {
        const auto ids = UsersNamed(*name, TextOf(layout, line, u"ip_addr"));
        if (!ids) {
            return tl::unexpected(ids.error());
        }
        isAnybody = Narrow(behind.users, behind.userScope, *ids, *name);
    }
    return isAnybody ? std::optional(behind) : std::nullopt;
}

QString QueryOf(const ReportSelection &selection)
{
    return NarrowedQueryText(selection.row,
                             selection.period,
                             KeptUsersClause(selection.users),
                             KeptGroupsClause(selection.groups));
}

QString FilterWordsOf(const ReportSelection &selection)
{
    const bool none = selection.userScope.effect == FilterEffect::None
        && selection.groupScope.effect == FilterEffect::None;
    return none ? QString() : FilterInWords(selection.userScope, selection.groupScope);
}
