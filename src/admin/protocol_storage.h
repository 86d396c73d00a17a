// The protocols in the database: tables Protocols and Ports, and what Port_blocked says of the ports.
#pragma once

#include "actions/action.h"
#include "admin/protocol_table.h"

#include <QStringList>

#include <memory>

// The first 100 protocols by name, each with its first 100 ports. A failure when any of it could not
// be read: what is not known is not edited.
[[nodiscard]] Result<ProtocolTable> LoadProtocols();

// As the setup wizard sees them: the monitored ones are listed, the others can be listed again by
// their name. A protocol that leaves the wizard's list is no longer monitored and stays in the
// database.
[[nodiscard]] Result<ProtocolTable> LoadWizardProtocols();

// Whether ports may go that users and groups are denied: one question for each protocol with such
// ports. No keeps everything as it is.
[[nodiscard]] Result<QList<Question>> QuestionsOnDenials(const ProtocolTable &table);

// What was not tried, and why: filled while an action runs, and read after it.
using LeftOut = std::shared_ptr<QStringList>;

// Brings the database in line with the table, in this order: new protocols with their ports, new
// ports, removed protocols, removed ports, which protocols are monitored. What other consoles did
// meanwhile stays, unless the table's own changes are about the same: a protocol that is gone does not
// come back, and gets no ports.
[[nodiscard]] Action SaveProtocolsAction(const ProtocolTable &table, const LeftOut &leftOut);

// The setup wizard's: each protocol is an action of its own and stands or falls as a whole. Its row,
// its ports, which become those of the table, and whether it is listed. Ports beyond the table's
// hundred and those of other consoles stay, and what was denied stays denied.
struct ProtocolAction
{
    QString protocol;
    Action action;
};
[[nodiscard]] QList<ProtocolAction> SaveWizardProtocolActions(const ProtocolTable &table);
