// "Change group": chooses one of the groups; groups can be added and deleted on the way.
#pragma once

#include "access/group_list.h"
#include "startup/app_services.h"

#include <QDialog>

class QListWidget;
class QPushButton;

// What "Add group..." and "Delete group" do stands in the database at once, whatever closes the
// dialog.
class ChangeGroupDialog : public QDialog
{
    Q_OBJECT

public:
    ChangeGroupDialog(const AppServices &services, QWidget *parent);

    // The group that was chosen; meaningful after OK.
    [[nodiscard]] const NamedGroup &ChosenGroup() const { return chosen; }

    void accept() override;

private:
    void Lay();
    void Fill();
    void Choose();
    void AddNewGroup();
    void DeleteChosenGroup();
    [[nodiscard]] int ChosenRow() const; // -1 for none
    [[nodiscard]] bool IsNew(const QString &name);
    [[nodiscard]] int SortedPlace(const QString &name) const;

    const AppServices &services;
    QListWidget *list;
    QPushButton *add;
    QPushButton *remove;
    QPushButton *ok;
    QList<GroupId> groupIds; // by position
    NamedGroup chosen;
};
