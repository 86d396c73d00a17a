// The protocols that a user or group is restricted by, while its sheet is open.
#pragma once

#include "access/owner.h"

#include <QString>
#include <QStringList>

#include <vector>

struct ChosenPort
{
    PortId id;
    bool restricted = false; // as stored
};

struct ChosenProtocol
{
    QString name;
    ProtocolId id;
    bool selected = false;
    std::vector<ChosenPort> ports;

    // As stored: a protocol counts as selected when any of its ports is restricted.
    [[nodiscard]] bool IsRestricted() const;
};

struct ProtocolChoice
{
    static constexpr size_t kMostProtocols = 100;
    static constexpr size_t kMostPorts = 100; // of each protocol

    bool storedAllow = false;
    bool allow = false; // "Allow protocols"
    std::vector<ChosenProtocol> protocols; // by name

    [[nodiscard]] QStringList Names(bool selected) const;

    // Whether storing it adds or removes a port's row.
    [[nodiscard]] bool ChangesPorts() const;

    // Marks the first protocol of exactly this name.
    void Select(const QString &name, bool selected);
};

// As stored; nothing when the owner's row is gone.
[[nodiscard]] Result<std::optional<ProtocolChoice>> ReadProtocolChoice(const Owner &owner);
