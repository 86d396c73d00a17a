// The groups list: every group in the database's order, at most 500.
#pragma once

#include "base/prompt.h"
#include "ui/main/frame_dialogs.h"
#include "ui/main/list_pane.h"

class GroupListModel;

class CAdministratorViewGrp : public ListPane
{
    Q_OBJECT

public:
    CAdministratorViewGrp(Prompt &prompt, const FrameDialogs &dialogs, QWidget *parent);

    // Reads the list anew.
    void FillGroups();

    void OpenProperties() override;
    void OpenAccount() override;
    [[nodiscard]] bool HasAccount() const override;

    // Only takes the row out: neither list is filled anew.
    void DeleteSelected() override;

    void RenameSelected();

protected:
    [[nodiscard]] quint32 IdAt(int row) const override;
    [[nodiscard]] int RowOf(quint32 id) const override;
    void RefreshKey() override;
    void FillPopUp(QMenu &menu) override;

private:
    [[nodiscard]] int SelectedRow() const; // -1 for none

    Prompt &prompt;
    const FrameDialogs &dialogs;
    GroupListModel *groups;
};
