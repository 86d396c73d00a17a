#include "ui/options/browse_user_dialog.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"
#include "ui/common/window_memory.h"

#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUserRole = Qt::UserRole;
constexpr int kGroupRole = Qt::UserRole + 1;

// The names of the user's logins; nothing when nobody has that name any more.
Result<std::optional<QStringList>> LoginsIfThere(const QString &name, UserId userId)
{
    const auto found = FindUserByName(name);
    if (!found) {
        return tl::unexpected(found.error());
    }
    if (!*found) {
        return std::nullopt;
    }
    return LoginsOf(userId).map([](QStringList names) { return std::optional(std::move(names)); });
}

} // namespace

BrowseUserDialog::BrowseUserDialog(
    const AppServices &appServices,
    const std::vector<LoginGroup> &groups,
    std::function<bool(UserId userId, const QStringList &stored)> userHasLogin,
    const QString &whenRefused,
    QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , hasLogin(std::move(userHasLogin))
    , refusal(whenRefused)
    , tree(new QTreeWidget)
{
    setWindowTitle(tr("Browse for user"));
    SetNames(*tree, u"users"_s, tr("Groups and users"));
    tree->setHeaderHidden(true);
    auto *column = new QVBoxLayout(this);
    column->addWidget(tree);
    column->addWidget(OkAndCancel(*this));
    RememberSize(*this, u"browse"_s, {340, 420});
    Fill(groups);
}

void BrowseUserDialog::Fill(const std::vector<LoginGroup> &groups)
{
    for (const LoginGroup &group : groups) {
        auto *node = new QTreeWidgetItem({group.name});
        node->setIcon(0, IconOf(Picture::Group));
        tree->addTopLevelItem(node);
        for (const LoginUser &user : group.users) {
            auto *leaf = new QTreeWidgetItem(node, {user.name});
            leaf->setIcon(0, IconOf(Picture::User));
            leaf->setData(0, kUserRole, user.userId.value);
            leaf->setData(0, kGroupRole, group.groupId.value);
        }
    }
}

void BrowseUserDialog::accept()
{
    const QTreeWidgetItem *node = tree->currentItem();
    if (node == nullptr || node->parent() == nullptr) {
        services.prompt.Tell(tr("Please select username, not the groupname"),
                             Prompt::Icon::Warning);
        return;
    }
    // Two users may have one name: the one that was pointed at counts.
    const FoundUser user {UserId {node->data(0, kUserRole).toUInt()},
                          GroupId {node->data(0, kGroupRole).toUInt()}};
    if (MayChoose(node->text(0), user.userId)) {
        chosen = user;
        chosenName = node->text(0);
        QDialog::accept();
    }
}

bool BrowseUserDialog::MayChoose(const QString &name, UserId userId)
{
    const auto logins = Await(services, this, tr("Reading the user's logins..."), [name, userId] {
        return LoginsIfThere(name, userId);
    });
    if (!logins) {
        TellUnread(
            services, tr("Whether this user has a login could not be read."), logins.error());
        return false;
    }
    const bool mayChoose = *logins && !hasLogin(userId, **logins);
    if (!mayChoose) {
        services.prompt.Tell(*logins ? refusal : tr("This user is no longer in the database"),
                             Prompt::Icon::Warning);
    }
    return mayChoose;
}
