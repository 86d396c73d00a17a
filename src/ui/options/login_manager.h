// "Login manager": the logins with which users authenticate, made, edited and removed.
#pragma once

#include "admin/login_table.h"
#include "startup/app_services.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

class LoginManager : public QDialog
{
    Q_OBJECT

public:
    LoginManager(const AppServices &services, QWidget *parent);

    void accept() override;

private:
    void Build();
    void FillTree();
    void FillList();
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
    QPushButton *edit = nullptr;
    QPushButton *remove = nullptr;
};

void OpenLoginManager(const AppServices &services, QWidget *parent);
