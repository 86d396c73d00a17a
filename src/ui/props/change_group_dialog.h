// "Change group": chooses one of the groups; as a command of its own it lets groups be added and deleted
// on the way.
#pragma once

#include "access/group_list.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

#include <optional>

class QListWidget;
class QPushButton;

// What "Add group..." and "Delete group" do stands in the database at once, whatever closes the
// dialog. What could not be done there changes nothing here.
class ChangeGroupDialog : public Dialog
{
    Q_OBJECT

public:
    // Inside a sheet, whose Cancel could not take them back, groups are neither added nor deleted.
    enum class Place { Command, Sheet };

    ChangeGroupDialog(const AppServices &services,
                      const QList<NamedGroup> &groups,
                      Place place,
                      QWidget *parent);

    // Goes to the row of this group without choosing it.
    void StartAt(GroupId groupId);

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

// Reads the groups and has one chosen, starting at the group that the first of the users has or that the
// sheet shows. Nothing when none was chosen, or when they could not be read or the one user is gone, which
// is told.
[[nodiscard]] std::optional<NamedGroup>
ChooseGroupFor(const AppServices &services, const QList<UserId> &userIds, QWidget *parent);
[[nodiscard]] std::optional<NamedGroup>
ChooseGroupInSheet(const AppServices &services, GroupId current, QWidget *parent);
