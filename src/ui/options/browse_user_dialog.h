// "Browse for user": a tree of groups with their users, of which one is chosen.
#pragma once

#include "admin/login_table.h"
#include "startup/app_services.h"

#include <QDialog>

#include <functional>

class QTreeWidget;

class BrowseUserDialog : public QDialog
{
    Q_OBJECT

public:
    // A user for whom `hasLogin` is true is refused with `refusal`.
    BrowseUserDialog(const AppServices &services,
                     std::function<bool(UserId userId)> hasLogin,
                     const QString &refusal,
                     QWidget *parent);

    [[nodiscard]] FoundUser Chosen() const { return chosen; }
    [[nodiscard]] QString ChosenName() const { return chosenName; }

    void accept() override;

private:
    void Fill();

    const AppServices &services;
    std::function<bool(UserId)> hasLogin;
    QString refusal;
    QTreeWidget *tree;
    FoundUser chosen;
    QString chosenName;
};
