// "Login manager": the logins with which users authenticate, made, edited and removed.
#pragma once

#include "admin/login_storage.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

#include <vector>

class EmptyNote;
class QPushButton;
class QTreeWidget;

class LoginManager : public Dialog
{
    Q_OBJECT

public:
    struct Content
    {
        LoginTable table;
        std::vector<LoginGroup> groups; // of the tree
    };

    // All that the window shows, on the session of this thread.
    [[nodiscard]] static Result<Content> Read();

    LoginManager(const AppServices &services, Content content, QWidget *parent);

    // Saves; what was not saved, which is told, stays in the list for another OK.
    void accept() override;

    // Asks first when something is not saved.
    void reject() override;

private:
    void Build();
    void FillTree(const std::vector<LoginGroup> &groups);
    void FillList();
    void GoTo(const QString &name, int place); // the login of that name, else the one at the place
    [[nodiscard]] LoginSaveReport Save(const LoginChanges &changes);
    [[nodiscard]] bool IsShown(const Login &login) const;
    [[nodiscard]] std::optional<size_t> Selected() const;
    void EnableButtons();
    void Create();
    void Edit();
    void Remove();

    const AppServices &services;
    LoginTable table;
    QTreeWidget *tree = nullptr;
    QTreeWidget *list = nullptr;
    EmptyNote *emptyNote = nullptr;
    QPushButton *edit = nullptr;
    QPushButton *remove = nullptr;
};

// Nothing opens when the logins could not be read, which is told.
void OpenLoginManager(const AppServices &services, QWidget *parent);
