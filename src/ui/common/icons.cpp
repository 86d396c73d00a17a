#include "ui/common/icons.h"

#include "ui/common/artwork_engine.h"

#include <QFile>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *kFileNames[] = {
    "application",    "user",
    "group",          "access-allowed",
    "access-blocked", "outside-allowed-time",
    "service-on",     "service-off",
    "connected",      "not-connected",
    "properties",     "account",
    "statistics",     "delete",
    "refresh",        "find",
    "reports",        "options",
    "exit",           "add",
    "remove",         "edit",
    "move-up",        "move-down",
    "unmonitored",    "adapter",
    "logins",         "purge",
    "wizard",         "help",
    "about",          "failures",
    "print",          "save",
    "network",        "tariff",
    "protocols",      "binding",
    "calendar",       "page-setup",
};
static_assert(std::size(kFileNames) == static_cast<size_t>(Picture::PageSetup) + 1);

// In a selected row: the picture's own file for that, else the same untinted, since a style would
// blend it with the highlight.
QIcon Load(Picture picture)
{
    const auto name = QLatin1StringView(kFileNames[static_cast<int>(picture)]);
    const QString file = u":/icons/%1.svg"_s.arg(name);
    const QString selected = u":/icons/%1-selected.svg"_s.arg(name);
    return QIcon(new ArtworkEngine(file, QFile::exists(selected) ? selected : file));
}

} // namespace

// Outside any namespace, as the resource compiler's function is.
static void LoadArtwork()
{
    Q_INIT_RESOURCE(icons);
}

const QIcon &IconOf(Picture picture)
{
    static QMap<Picture, QIcon> icons = [] {
        LoadArtwork();
        return QMap<Picture, QIcon>();
    }();
    auto icon = icons.find(picture);
    if (icon == icons.end()) {
        icon = icons.insert(picture, Load(picture));
    }
    return *icon;
}
