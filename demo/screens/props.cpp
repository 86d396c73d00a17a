#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"
#include "ui/props/properties.h"

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

struct Opener
{
    const char *button;
    const char *picture;
};

// The dialogs that the buttons of the sheet's page open.
void DrawOpened(Studio &studio, QDialog &sheet, int page, std::initializer_list<Opener> openers)
{
    sheet.findChild<QTabWidget *>()->setCurrentIndex(page);
    for (const Opener &opener : openers) {
        auto *button = sheet.findChild<QPushButton *>(QLatin1String(opener.button));
        studio.DrawDialog(QString::fromLatin1(opener.picture), [button] { button->click(); });
    }
}

void DrawUser(Studio &studio, UserId user)
{
    const auto prepare = [&studio](QDialog &sheet) {
        studio.DrawPages(u"user-properties"_s, sheet);
        DrawOpened(studio,
                   sheet,
                   user_page::kGeneral,
                   {{"changeIp", "change-ip-address"},
                    {"changeMac", "change-mac-address"},
                    {"changeGroup", "user-group"}});
        DrawOpened(studio,
                   sheet,
                   user_page::kLimits,
                   {{"changePeriod", "accounting-period"}, {"changeTraffic", "limit"}});
        DrawOpened(studio, sheet, user_page::kTime, {{"addRange", "add-time-range"}});
    };
    studio.DrawDialog(
        u"user-properties"_s,
        [&] { OpenUserSheet(studio.Services(), user, user_page::kGeneral, &studio.Frame()); },
        prepare);
}

void DrawGroup(Studio &studio)
{
    const auto prepare = [&studio](QDialog &sheet) {
        studio.DrawPages(u"group-properties"_s, sheet);
        DrawOpened(studio, sheet, group_page::kGeneral, {{"addMember", "add-user-to-group"}});
        DrawOpened(studio, sheet, group_page::kLimits, {{"changeRate", "rate"}});
    };
    const auto group =
        FirstId<GroupId>(studio, "SELECT group_id FROM groups WHERE mode = 2 AND own_price = true");
    studio.DrawDialog(
        u"group-properties"_s,
        [&] { OpenGroupSheet(studio.Services(), group, group_page::kGeneral, &studio.Frame()); },
        prepare);
}

} // namespace

void DrawProperties(Studio &studio)
{
    const auto user = FirstId<UserId>(studio,
                                      "SELECT user_id FROM users WHERE mode = 1 AND user_id IN "
                                      "(SELECT user_id FROM time_blocked)");
    DrawUser(studio, user);
    DrawGroup(studio);
    studio.DrawDialog(u"access-for-users"_s, [&] {
        OpenAccessForUsers(studio.Services(),
                           {user, UserId {user.value + 1}, UserId {user.value + 2}},
                           &studio.Frame());
    });
}
