// The protocols and ports of an owner as they are stored, and how its choice of them is.
#pragma once

#include "access/protocol_choice.h"
#include "actions/action_run.h"

// As ReadProtocolChoice, which looks for a port's row with another text than the sheets do when they
// store.
[[nodiscard]] Result<std::optional<ProtocolChoice>> ReadStoredProtocols(const Owner &owner,
                                                                        const OwnerText &portRow);

// As they stand when the sheet is stored.
[[nodiscard]] Result<std::optional<ProtocolChoice>> ReadProtocolsToStore(const Owner &owner);

// What is to be stored: the choice of the sheet where it was changed there, and what stands now where
// it was not. Ports are those of now; a protocol that is gone, or was not known to the sheet, is left
// out.
[[nodiscard]] ProtocolChoice SettleProtocols(const ProtocolChoice &sheet,
                                             const ProtocolChoice &now);

// Writes the flag and every port of every protocol, changed or not: storing twice changes nothing.
void WriteProtocols(ActionRun &run, const Owner &owner, const ProtocolChoice &choice);
