// "Change group": chooses one of the groups; groups can be added and deleted on the way.
#pragma once

#include "access/group_list.h"
#include "startup/app_services.h"

#include <QDialog>

#include <optional>

class QListWidget;
class QPushButton;

// What "Add group..." and "Delete group" do stands in the database at once, whatever closes the
// dialog. What could not be done there changes nothing here.
class ChangeGroupDialog : public QDialog
{
    Q_OBJECT

public:
    ChangeGroupDialog(const AppServices &services,
                      const QList<NamedGroup> &groups,
                      QWidget *parent);

    // The group that was chosen; meaningful after OK.
    [[nodiscard]] const NamedGroup &ChosenGroup() const { return chosen; }

    void accept() override;

private:
    void Lay();
    void Fill(const QList<NamedGroup> &groups);
    void Choose();
    void AddNewGroup();
    void List(const QString &name, GroupId groupId);
    void DeleteChosenGroup();
    [[nodiscard]] bool Delete(GroupId groupId);
    [[nodiscard]] int ChosenRow() const; // -1 for none
    [[nodiscard]] bool IsNew(const QString &name) const;
    [[nodiscard]] int SortedPlace(const QString &name) const;

    const AppServices &services;
    QListWidget *list;
    QPushButton *add;
    QPushButton *remove;
    QPushButton *ok;
    QList<GroupId> groupIds; // by position
    NamedGroup chosen;
};

// Reads the groups and has one chosen. Nothing when none was chosen, or when they could not be read,
// which is told.
[[nodiscard]] std::optional<NamedGroup> ChooseGroup(const AppServices &services, QWidget *parent);
