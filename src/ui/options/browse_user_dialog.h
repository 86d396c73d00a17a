// "Browse for user": a tree of groups with their users, of which one is chosen.
#pragma once

#include "admin/login_storage.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

#include <functional>
#include <vector>

class QTreeWidget;

class BrowseUserDialog : public Dialog
{
    Q_OBJECT

public:
    // Shows `groups` with their users, as they were read. A user for whom `hasLogin` is true is refused
    // with `refusal`; it is handed the names of the user's logins in the database.
    BrowseUserDialog(const AppServices &services,
                     const std::vector<LoginGroup> &groups,
                     std::function<bool(UserId userId, const QStringList &stored)> hasLogin,
                     const QString &refusal,
                     QWidget *parent);

    [[nodiscard]] FoundUser Chosen() const { return chosen; }
    [[nodiscard]] QString ChosenName() const { return chosenName; }

    // Stays open when the user that is pointed at cannot be chosen, and says why.
    void accept() override;

private:
    void Fill(const std::vector<LoginGroup> &groups);
    [[nodiscard]] bool MayChoose(const QString &name, UserId userId);

    const AppServices &services;
    std::function<bool(UserId, const QStringList &)> hasLogin;
    QString refusal;
    QTreeWidget *tree;
    FoundUser chosen;
    QString chosenName;
};
