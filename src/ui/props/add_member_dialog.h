// "Add user to the group": offers users and hands back those that were chosen.
#pragma once

#include "access/member_table.h"
#include "ui/common/dialog.h"

class QListWidget;

class AddMemberDialog : public Dialog
{
    Q_OBJECT

public:
    explicit AddMemberDialog(std::vector<Member> offered, QWidget *parent = nullptr);

    [[nodiscard]] std::vector<Member> Chosen() const;

private:
    std::vector<Member> offered; // by list row
    QListWidget *list;
};
