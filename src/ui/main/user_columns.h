// The columns of the users list: which are shown, how wide, and where that is kept.
#pragma once

#include "config/config_store.h"

#include <QList>

#include <array>

// A column's slot number; the slots are not in the order of display.
enum class UserColumn {
    UserName = 0,
    IpAddress = 1,
    Workstation = 2,
    FullName = 3,
    Access = 4,
    MacAddress = 5,
    Group = 6,
    Used = 7, // these two are of this person at this desktop alone
    Left = 8,
};

constexpr size_t kUserColumns = 9;

// From left to right.
inline constexpr std::array<UserColumn, kUserColumns> kUserColumnOrder {
    UserColumn::UserName,
    UserColumn::Workstation,
    UserColumn::FullName,
    UserColumn::IpAddress,
    UserColumn::MacAddress,
    UserColumn::Group,
    UserColumn::Access,
    UserColumn::Used,
    UserColumn::Left,
};

// Whether the column shows figures of the user's account, which have to be read for it.
[[nodiscard]] constexpr bool IsOfAccount(UserColumn column)
{
    return column == UserColumn::Used || column == UserColumn::Left;
}

[[nodiscard]] QString HeaderText(UserColumn column);

// The code by which a click on the header sorts (access/user_list.h); -1 for the column that does not
// sort.
[[nodiscard]] int SortCode(UserColumn column);

// Visibility and width in pixels of each column, by slot.
struct UserColumns
{
    std::array<bool, kUserColumns> columnVisible {
        true, true, true, true, true, true, true, false, false};
    std::array<int, kUserColumns> columnWidth {150, 100, 150, 150, 75, 100, 100, 110, 110};

    // Kept in the store's key for the lists; a key that cannot be opened leaves everything as it is.
    // The columns of the account are kept with what a person has made of the windows.
    void Load(const ConfigStore &config);
    void RememberOptional() const; // the columns of the account
    [[nodiscard]] SettingsResult Save(const ConfigStore &config) const; // the others

    [[nodiscard]] bool IsVisible(UserColumn column) const;
    [[nodiscard]] bool ShowAccounts() const; // a column of the account is visible
    [[nodiscard]] int Width(UserColumn column) const;
    [[nodiscard]] bool HasUsualWidth(UserColumn column) const; // no other one is stored
    void Toggle(UserColumn column);

    // The visible columns from left to right.
    [[nodiscard]] QList<UserColumn> Shown() const;

    // False when no column with text of the user's own is visible: the list then stays empty.
    [[nodiscard]] bool ShowUsers() const;
};
