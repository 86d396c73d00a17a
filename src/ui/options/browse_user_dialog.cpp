#include "ui/options/browse_user_dialog.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"

#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUserRole = Qt::UserRole;
constexpr int kGroupRole = Qt::UserRole + 1;

} // namespace

BrowseUserDialog::BrowseUserDialog(const AppServices &appServices,
                                   std::function<bool(UserId userId)> userHasLogin,
                                   const QString &whenRefused,
                                   QWidget *parent)
    : QDialog(parent)
    , services(appServices)
    , hasLogin(std::move(userHasLogin))
    , refusal(whenRefused)
    , tree(new QTreeWidget)
{
    setWindowTitle(u"Browse for user"_s);
    SetNames(*tree, u"users"_s, u"Groups and users"_s);
    tree->setHeaderHidden(true);
    auto *column = new QVBoxLayout(this);
    column->addWidget(tree);
    column->addWidget(OkAndCancel(*this));
    resize(340, 420);
    Fill();
}

void BrowseUserDialog::Fill()
{
    for (const LoginGroup &group : LoadLoginUsers()) {
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
        services.prompt.Tell(u"Please select username, not the groupname"_s, Prompt::Icon::Warning);
        return;
    }
    // Two users may have one name: the one that was pointed at counts.
    const bool known = FindUserByName(node->text(0)).has_value();
    const FoundUser user {UserId {node->data(0, kUserRole).toUInt()},
                          GroupId {node->data(0, kGroupRole).toUInt()}};
    if (!known || hasLogin(user.userId)) {
        services.prompt.Tell(known ? refusal : u"This user is no longer in the database"_s,
                             Prompt::Icon::Warning);
        return;
    }
    chosen = user;
    chosenName = node->text(0);
    QDialog::accept();
}
