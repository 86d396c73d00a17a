// The program's own artwork: drawn for 16 pixels, sharp at any size, readable on light and dark.
#pragma once

#include <QIcon>

enum class Picture {
    Application,
    User,
    Group,
    AccessAllowed,
    AccessBlocked,
    OutsideAllowedTime,
    ServiceOn,
    ServiceOff,
    Connected,
    NotConnected,
    Properties,
    Account,
    Statistics,
    Delete,
    Refresh,
    Find,
    Reports,
    Options,
    Exit,
    Add,
    Remove,
    Edit,
    MoveUp,
    MoveDown,
    Unmonitored,
    Adapter,
    Logins,
    Purge,
    Wizard,
    Help,
    About,
    Failures,
    Print,
    Save,
    Network,
    Tariff,
    Protocols,
    Binding,
    Calendar,
    PageSetup,
};

// Loaded once and shared; cheap to call for every cell.
[[nodiscard]] const QIcon &IconOf(Picture picture);
