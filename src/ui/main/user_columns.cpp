#include "ui/main/user_columns.h"

#include "access/user_list.h"
#include "base/text.h"
#include "ui/common/window_memory.h"

#include <QCoreApplication>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(UserColumns)
};

struct ColumnTraits
{
    const char *header; // in English
    int sortCode;
    TextValue visible; // neither of a column that the store does not know
    TextValue width;
};

// By slot.
constexpr ColumnTraits kTraits[kUserColumns] = {
    {QT_TRANSLATE_NOOP("UserColumns", "Username"),
     user_order::kUserName,
     values::kViewUserHdr,
     values::kUserHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "IP Address"),
     user_order::kIpAddress,
     values::kViewIPHdr,
     values::kIPHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "Workstation"),
     user_order::kStationName,
     values::kViewWksHdr,
     values::kWksHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "Full name"),
     user_order::kFullName,
     values::kViewNameHdr,
     values::kNameHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "Access"),
     user_order::kBlocked,
     values::kViewAccessHdr,
     values::kAccessHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "MAC Address"),
     user_order::kMacAddress,
     values::kViewMACHdr,
     values::kMACHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "Group"), -1, values::kViewGroupHdr, values::kGroupHdrWidth},
    {QT_TRANSLATE_NOOP("UserColumns", "Used"), user_order::kUsed, {}, {}},
    {QT_TRANSLATE_NOOP("UserColumns", "Left"), user_order::kLeft, {}, {}},
};

constexpr size_t Slot(UserColumn column)
{
    return static_cast<size_t>(column);
}

const ColumnTraits &TraitsOf(UserColumn column)
{
    return kTraits[Slot(column)];
}

QList<UserColumn> ColumnsThat(bool (*holds)(UserColumn))
{
    QList<UserColumn> columns;
    std::ranges::copy_if(kUserColumnOrder, std::back_inserter(columns), holds);
    return columns;
}

QList<UserColumn> StoredColumns()
{
    return ColumnsThat([](UserColumn column) { return !IsOfAccount(column); });
}

QString MemoryKey(UserColumn column)
{
    return u"users/shown%1"_s.arg(Slot(column));
}

} // namespace

QString HeaderText(UserColumn column)
{
    return Words::tr(TraitsOf(column).header);
}

int SortCode(UserColumn column)
{
    return TraitsOf(column).sortCode;
}

void UserColumns::Load(const ConfigStore &config)
{
    for (const UserColumn column : ColumnsThat(IsOfAccount)) {
        columnVisible[Slot(column)] = Remembered(MemoryKey(column)).toBool();
    }
    if (!config.HasKey(ConfigKeyId::Ui)) {
        return;
    }
    QString verdict; // kept: a missing value repeats the verdict of the value read before it
    for (const UserColumn column : StoredColumns()) {
        verdict = config.ReadText(TraitsOf(column).visible).value_or(verdict);
        columnVisible[Slot(column)] = verdict != u"0"_s;
    }
    for (const UserColumn column : StoredColumns()) {
        if (const auto width = config.ReadText(TraitsOf(column).width)) {
            columnWidth[Slot(column)] = IntegerFrom(*width);
        }
    }
}

void UserColumns::RememberOptional() const
{
    for (const UserColumn column : ColumnsThat(IsOfAccount)) {
        Remember(MemoryKey(column), IsVisible(column));
    }
}

SettingsResult UserColumns::Save(const ConfigStore &config) const
{
    return config.Edit(ConfigKeyId::Ui, [this](KeyEditor &key) {
        for (const UserColumn column : StoredColumns()) {
            key.WriteFlag(TraitsOf(column).visible, IsVisible(column));
            key.WriteInteger(TraitsOf(column).width, Width(column));
        }
    });
}

bool UserColumns::IsVisible(UserColumn column) const
{
    return columnVisible[Slot(column)];
}

bool UserColumns::ShowAccounts() const
{
    return std::ranges::any_of(kUserColumnOrder, [this](UserColumn column) {
        return IsOfAccount(column) && IsVisible(column);
    });
}

int UserColumns::Width(UserColumn column) const
{
    return columnWidth[Slot(column)];
}

bool UserColumns::HasUsualWidth(UserColumn column) const
{
    return Width(column) == UserColumns().Width(column);
}

void UserColumns::Toggle(UserColumn column)
{
    columnVisible[Slot(column)] = !columnVisible[Slot(column)];
}

QList<UserColumn> UserColumns::Shown() const
{
    QList<UserColumn> shown;
    std::ranges::copy_if(kUserColumnOrder, std::back_inserter(shown), [this](UserColumn column) {
        return IsVisible(column);
    });
    return shown;
}

bool UserColumns::ShowUsers() const
{
    return std::ranges::any_of(kUserColumnOrder, [this](UserColumn column) {
        return IsVisible(column) && column != UserColumn::Group && column != UserColumn::Access
            && !IsOfAccount(column);
    });
}
