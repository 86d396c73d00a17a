#include "ui/common/icons.h"

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
};
static_assert(std::size(kFileNames) == static_cast<size_t>(Picture::Binding) + 1);

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
        const auto name = QLatin1StringView(kFileNames[static_cast<int>(picture)]);
        icon = icons.insert(picture, QIcon(u":/icons/%1.svg"_s.arg(name)));
    }
    return *icon;
}
