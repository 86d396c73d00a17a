#include "metering/gateway_claim.h"

#include "metering/books.h"

#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Holder
{
    QString instance;
    QDateTime seen; // not valid: it has ended
};

Holder ReadHolder(Books &books, const QString &gatewayId, bool &isThere)
{
    const auto holder = books.Take(ReadOne(
        "SELECT instance, seen FROM service_gateways WHERE gateway = (?)",
        [](const Row &row) {
            return std::optional(
                Holder {row.Text(1), QDateTime::fromString(row.Text(2), Qt::ISODate)});
        },
        gatewayId));
    isThere = holder.has_value();
    return holder ? holder->value_or(Holder()) : Holder();
}

// A clock that is behind the other one's is no reason to take it for silent.
bool IsSilent(const Holder &holder, const QDateTime &now, std::chrono::seconds silence)
{
    return !holder.seen.isValid() || std::abs(holder.seen.secsTo(now)) >= silence.count();
}

QString SeenText(const QDateTime &now)
{
    return now.toUTC().toString(Qt::ISODate);
}

Result<bool> IsHeldBy(const GatewayClaim &claim)
{
    return Exists("SELECT instance FROM service_gateways WHERE gateway = (?) and instance = (?)",
                  claim.gatewayId,
                  claim.instance);
}

} // namespace

Result<ClaimOutcome>
ClaimGateway(const GatewayClaim &claim, const QDateTime &now, std::chrono::seconds silence)
{
    ClaimOutcome outcome = ClaimOutcome::Ours;
    const auto kept = books::InTransaction([&](Books &books) {
        bool isThere = false;
        const Holder holder = ReadHolder(books, claim.gatewayId, isThere);
        const bool isOurs = holder.instance == claim.instance;
        outcome = !isThere || isOurs || IsSilent(holder, now, silence)
            ? ClaimOutcome::Ours
            : ClaimOutcome::AnotherIsAlive;
        if (outcome == ClaimOutcome::AnotherIsAlive) {
            return;
        }
        if (!isThere) {
            books.Write("INSERT INTO service_gateways (gateway, generation, instance, seen) VALUES "
                        "((?), (?), (?), (?))",
                        claim.gatewayId,
                        QString::number(claim.generation),
                        claim.instance,
                        SeenText(now));
            return;
        }
        books.Write(
            "UPDATE service_gateways SET generation = (?), instance = (?), seen = (?) WHERE "
            "gateway = (?)",
            QString::number(claim.generation),
            claim.instance,
            SeenText(now),
            claim.gatewayId);
    });
    return kept.map([&outcome](bool) { return outcome; });
}

// One statement without a transaction of its own: the mark of the data tells then who else wrote.
Result<ClaimOutcome> RenewClaim(const GatewayClaim &claim, const QDateTime &now)
{
    return WriteRows(
               "UPDATE service_gateways SET generation = (?), seen = (?) WHERE gateway = (?) and "
               "instance = (?)",
               QString::number(claim.generation),
               SeenText(now),
               claim.gatewayId,
               claim.instance)
        .and_then([&](qint64 rows) {
            // One engine counts no rows that were so before.
            return rows > 0 ? Result<bool>(true) : IsHeldBy(claim);
        })
        .map(
            [](bool isOurs) { return isOurs ? ClaimOutcome::Ours : ClaimOutcome::AnotherIsAlive; });
}

Result<bool> ReleaseClaim(const GatewayClaim &claim)
{
    return books::InTransaction([&](Books &books) {
        books.Write("UPDATE service_gateways SET seen = '' WHERE gateway = (?) and instance = (?)",
                    claim.gatewayId,
                    claim.instance);
    });
}
