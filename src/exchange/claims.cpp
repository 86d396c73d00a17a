#include "exchange/claims.h"

#include "base/text.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportClaims)
};

using Rows = std::vector<ImportRow>;

void RefuseTwice(Rows &rows, const QList<size_t> &places, const QString &reason)
{
    for (const size_t place : places) {
        ImportRow &row = rows[place];
        if (row.reason.isEmpty()) {
            const size_t other = places.constFirst() == place ? places[1] : places.constFirst();
            row.reason = reason.arg(rows[other].line);
        }
    }
}

// The rows of each key that several rows have; rows without a key have nothing in common.
template <typename KeyOf>
void RefuseSame(Rows &rows, const KeyOf &keyOf, const QString &reason)
{
    QHash<QString, QList<size_t>> places;
    for (size_t place = 0; place < rows.size(); ++place) {
        const QString key = keyOf(rows[place]);
        if (!key.isEmpty()) {
            places[key].append(place);
        }
    }
    for (const QList<size_t> &same : std::as_const(places)) {
        if (same.size() > 1) {
            RefuseTwice(rows, same, reason);
        }
    }
}

// One kind of address: who will have it, and which row wants it.
struct AddressKind
{
    QString UserValues::*field;
    QString whyTaken; // the address and the name of its user
    QHash<QString, QHash<UserId, QString>> holders {}; // with their names
    QHash<QString, size_t> claims {};

    [[nodiscard]] QString Before(const ImportRow &row) const { return row.before.*field; }
    [[nodiscard]] QString After(const ImportRow &row) const { return row.after.*field; }
    [[nodiscard]] bool IsWanted(const ImportRow &row) const { return After(row) != Before(row); }

    void Hold(const QString &address, UserId userId, const QString &name)
    {
        if (!address.isEmpty()) {
            holders[address][userId] = name;
        }
    }

    void Claim(const ImportRow &row, size_t place)
    {
        if (!IsWanted(row)) {
            return;
        }
        claims.insert(After(row), place);
        if (const auto held = holders.find(Before(row)); held != holders.end()) {
            held->remove(row.userId);
        }
    }

    // Nothing while the row may have what it wants.
    [[nodiscard]] std::optional<QString> WhyNot(const ImportRow &row) const
    {
        const auto held = holders.constFind(After(row));
        const bool isTaken = held != holders.constEnd() && !held->isEmpty();
        return IsWanted(row) && isTaken
            ? std::optional(whyTaken.arg(After(row), held->constBegin().value()))
            : std::nullopt;
    }
};

class AddressClaims
{
public:
    AddressClaims(Rows &importRows, const StoredUsers &stored) : rows(importRows)
    {
        for (AddressKind &kind : kinds) {
            for (const StoredUserRow &user : stored.users) {
                kind.Hold(user.values.*kind.field, user.userId, user.name);
            }
            for (size_t place = 0; place < rows.size(); ++place) {
                if (rows[place].reason.isEmpty()) {
                    kind.Claim(rows[place], place);
                }
            }
        }
    }

    void Settle()
    {
        for (size_t place = 0; place < rows.size(); ++place) {
            Check(place);
        }
    }

private:
    // A row that is refused keeps what its user has, which another row may have wanted.
    void Check(size_t first)
    {
        QList<size_t> open {first};
        while (!open.isEmpty()) {
            ImportRow &row = rows[open.takeLast()];
            for (const AddressKind &kind : kinds) {
                const auto reason = kind.WhyNot(row);
                if (row.reason.isEmpty() && reason) {
                    row.reason = *reason;
                    open += KeepAddresses(row);
                }
            }
        }
    }

    // The rows to look at once more.
    QList<size_t> KeepAddresses(const ImportRow &row)
    {
        QList<size_t> again;
        for (AddressKind &kind : kinds) {
            if (!row.userId.IsSet() || !kind.IsWanted(row)) {
                continue;
            }
            kind.Hold(kind.Before(row), row.userId, row.name);
            if (const auto claim = kind.claims.constFind(kind.Before(row));
                claim != kind.claims.constEnd()) {
                again.append(*claim);
            }
        }
        return again;
    }

    Rows &rows;
    std::array<AddressKind, 2> kinds {
        AddressKind {&UserValues::ipAddress,
                     Words::tr("The IP address %1 is the one of the user \"%2\"")},
        AddressKind {&UserValues::macAddress,
                     Words::tr("The MAC address %1 is the one of the user \"%2\"")}};
};

// What a row wants and its user has not; empty for a row that is refused already.
QString Wanted(const ImportRow &row, QString UserValues::*field)
{
    const bool wants = row.reason.isEmpty() && row.after.*field != row.before.*field;
    return wants ? row.after.*field : QString();
}

} // namespace

void RefuseDoubleClaims(Rows &rows, const StoredUsers &stored)
{
    RefuseSame(
        rows,
        [](const ImportRow &row) { return NameKey(row.name); },
        Words::tr("Line %1 names the same user"));
    RefuseSame(
        rows,
        [](const ImportRow &row) { return Wanted(row, &UserValues::ipAddress); },
        Words::tr("Line %1 has the same IP address"));
    RefuseSame(
        rows,
        [](const ImportRow &row) { return Wanted(row, &UserValues::macAddress); },
        Words::tr("Line %1 has the same MAC address"));
    RefuseSame(
        rows,
        [](const ImportRow &row) { return NameKey(Wanted(row, &UserValues::login)); },
        Words::tr("Line %1 has the same login"));
    AddressClaims(rows, stored).Settle();
}
