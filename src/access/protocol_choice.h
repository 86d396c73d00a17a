// The protocols that a user or group is restricted by, while its sheet is open.
#pragma once

#include "access/owner.h"

#include <QString>
#include <QStringList>

#include <vector>

struct ChosenProtocol
{
    QString name;
    ProtocolId id;
    bool selected = false;
    std::vector<PortId> ports;
};

struct ProtocolChoice
{
    static constexpr size_t kMostProtocols = 100;
    static constexpr size_t kMostPorts = 100; // of each protocol

    bool allow = false; // "Allow protocols"
    std::vector<ChosenProtocol> protocols; // by name

    [[nodiscard]] QStringList Names(bool selected) const;

    // Marks the first protocol of exactly this name.
    void Select(const QString &name, bool selected);
};

// A protocol counts as selected when any of its ports is restricted.
[[nodiscard]] ProtocolChoice ReadProtocolChoice(const Owner &owner);

// Writes the flag and every port of every protocol, changed or not: saving twice changes nothing.
void SaveProtocolChoice(const Owner &owner, const ProtocolChoice &choice);
