// The groups list: every group in the database's order, at most 500.
#pragma once

#include "access/group_list.h"
#include "startup/app_services.h"
#include "ui/main/frame_dialogs.h"
#include "ui/main/id_list_pane.h"

#include <QPersistentModelIndex>

class GroupListModel;

class CAdministratorViewGrp : public IdListPane<GroupId>
{
    Q_OBJECT

public:
    CAdministratorViewGrp(const AppServices &services,
                          const FrameDialogs &dialogs,
                          QWidget *parent);

    // Has the list read anew beside the window; Filled tells when it was.
    void FillGroups();

    // Of the listed groups.
    [[nodiscard]] QStringList Names() const;

    void OpenProperties() override;
    void OpenAccount() override;
    [[nodiscard]] QString AccountPrompt() const override;
    void AskForAccount(QObject *context, const std::function<void(bool)> &answer) override;

    // Only takes the row out: neither list is filled anew.
    void DeleteSelected() override;

    void RenameSelected();

signals:
    // Users of the users list were let go over a group.
    void UsersDropped(const QList<UserId> &userIds, GroupId groupId, const QString &name);

protected:
    [[nodiscard]] GroupId IdAt(int row) const override;
    [[nodiscard]] int RowOf(GroupId id) const override;
    [[nodiscard]] QString NameAt(int row) const override;
    [[nodiscard]] QString TextWhenEmpty() const override;
    void RefreshKey() override;
    void FillPopUp(QMenu &menu) override;
    void drawRow(QPainter *painter,
                 const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void ShowTarget(const QModelIndex &row);
    [[nodiscard]] std::optional<NamedGroup> TargetGroup() const;

    const AppServices &services;
    const FrameDialogs &dialogs;
    GroupListModel *groups;
    QPersistentModelIndex target; // the row over which users are dragged
};
