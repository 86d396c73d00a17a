// The main window on a fresh database with a few users and groups.
#pragma once

#include "db/value_codes.h"
#include "support/core/statement_recorder.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/main/administrator_view.h"
#include "ui/main/administrator_view_grp.h"
#include "ui/main/splitter_frame.h"

#include <memory>

// A user as the list reads it; the rest is the schema's.
struct SampleUser
{
    const char *name;
    const char *station = "";
    const char *fullName = "";
    const char *ip = "";
    const char *mac = "";
    GroupId group = kEverybodyGroup;
    bool blocked = false;
    BlockReason reason = BlockReason::None;
    bool timeAccess = false;
    bool timeBlocked = false;
    bool monitored = true;
    AccountingMode mode = AccountingMode::NoControl;
};

class ListFixture : public WindowFixture
{
protected:
    void SetUp() override;
    void TearDown() override;

    // The new row's id.
    UserId AddUser(const SampleUser &user);
    GroupId AddGroupNamed(const QString &name,
                          const QString &description = {},
                          AccountingMode mode = AccountingMode::NoControl);

    // Shows the main window; the dialogs that it opens are noted in `opened`, nothing else happens.
    CSplitterFrame &ShowFrame();
    void CloseFrame() { frame.reset(); }

    // Each once it shows what was read last.
    [[nodiscard]] CAdministratorView &Users() const;
    [[nodiscard]] CAdministratorViewGrp &Groups() const;

    // Types into the find bar, and returns once the list shows what it finds.
    void TypeFilter(const QString &text) const;

    // Names of the listed users from the top, first column.
    [[nodiscard]] QStringList Names() const;

    // The command of the menus with this object name.
    [[nodiscard]] QAction &Command(const char *name) const;

    // Opens the pop-up menu of the selection by the right mouse button on this row.
    void OpenPopUp(ListPane &pane, int row, const std::function<void(QMenu &)> &act) const;

    // From now on a box takes the focus while something is told or asked, and is closed with Escape.
    void LetMessagesTakeTheFocus();

    // Lets the lists and the commands on the selection come up to date.
    void Settle() const;

    FrameDialogs dialogs = NotingDialogs();
    QStringList opened; // such as "userProperties 1"
    ControlOutcome controlOutcome;
    ReconnectFlags reconnectOutcome;
    std::unique_ptr<CSplitterFrame> frame;

private:
    FrameDialogs NotingDialogs();
    template <typename IdType>
    std::function<void(IdType, QWidget *)> Noting(const char *what);
    FrameDialogs::ForNothing NotingPlain(const char *what);
};
