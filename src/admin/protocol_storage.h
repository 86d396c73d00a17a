// The protocols in the database: tables Protocols and Ports.
#pragma once

#include "admin/protocol_table.h"

// The first 100 protocols by name, each with its first 100 ports.
[[nodiscard]] ProtocolTable LoadProtocols();

// Brings the database in line with the table, in this order: new protocols with their ports, new
// ports, removed protocols, removed ports, which protocols are monitored. A statement that fails
// stops nothing.
void SaveProtocols(const ProtocolTable &table);

// As the setup wizard sees them: the monitored ones are listed, the others can be listed again by
// their name. A protocol that leaves the wizard's list is no longer monitored and stays in the
// database.
[[nodiscard]] ProtocolTable LoadWizardProtocols();

// Each protocol in turn: its row, its ports, which become exactly those of the table, and whether it
// is listed.
void SaveWizardProtocols(const ProtocolTable &table);
