#include "metering/new_users.h"

#include "base/net_address.h"
#include "metering/books.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Holder
{
    UserId id;
    QString ip;
    QString mac;
    QString stationName;
    QString userName;
};

Holder HolderIn(const Row &row)
{
    return {row.Id<UserId>(1), row.Text(2), row.Text(3), row.Text(4), row.Text(5)};
}

// As addresses, however they are written.
bool IsSameAddress(const QString &one, const QString &other)
{
    const auto address = NetAddress::From(one);
    return one == other || (address && address == NetAddress::From(other));
}

// A name without what no window could show.
QString Cleaned(const QString &name)
{
    QString cleaned;
    std::ranges::copy_if(name, std::back_inserter(cleaned), [](QChar c) { return c.isPrint(); });
    return cleaned.trimmed();
}

AccountingMode KnownMode(AccountingMode mode)
{
    switch (mode) {
    case AccountingMode::Traffic:
    case AccountingMode::Provider:
    case AccountingMode::Time:
    case AccountingMode::TrafficAndTime:
        return mode;
    default:
        return AccountingMode::NoControl;
    }
}

// Takes stations one by one in the transaction of all.
class Taking
{
public:
    Taking(Books &transaction, const StationRules &rulesInForce)
        : books(transaction)
        , rules(rulesInForce)
    { }

    void Take(const Station &station)
    {
        if (station.ip.isEmpty()) {
            return;
        }
        if (rules.identification == Identification::ByMac && !station.mac.isEmpty()) {
            TakeByMac(station);
        } else {
            TakeByIp(station);
        }
    }

    [[nodiscard]] const StationsTaken &Taken() const { return taken; }

private:
    [[nodiscard]] std::optional<Holder> OfAddress(const QString &ip)
    {
        return books.Take(ReadOne("SELECT user_id, ip_addr, mac_addr, stationname, username "
                                  "FROM users WHERE ip_addr = (?) ORDER BY user_id",
                                  HolderIn,
                                  ip));
    }

    // A row may have the address in another form than it has as a text.
    [[nodiscard]] std::optional<Holder> HolderOf(const Station &station)
    {
        if (station.user.IsSet()) {
            auto known =
                books.Take(ReadOne("SELECT user_id, ip_addr, mac_addr, stationname, username "
                                   "FROM users WHERE user_id = (?)",
                                   HolderIn,
                                   station.user));
            if (known && IsSameAddress(known->ip, station.ip)) {
                return known;
            }
        }
        return OfAddress(station.ip);
    }

    [[nodiscard]] std::optional<Holder> OfHardware(const QString &mac)
    {
        return books.Take(
            ReadOne("SELECT user_id, ip_addr, mac_addr, stationname, username FROM users "
                    "WHERE monitored IN (0, 1) and mac_addr = (?) ORDER BY user_id",
                    HolderIn,
                    mac));
    }

    void TakeByIp(const Station &station)
    {
        const auto holder = HolderOf(station);
        if (!holder) {
            Make(station);
            return;
        }
        const bool isOther = !holder->mac.isEmpty() && holder->mac != station.mac;
        if (isOther && rules.keepsAddresses) {
            return;
        }
        Complete(*holder, station);
    }

    void TakeByMac(const Station &station)
    {
        const auto holder = OfHardware(station.mac);
        const auto present = HolderOf(station);
        if (holder) {
            if (!IsSameAddress(holder->ip, station.ip) && rules.keepsAddresses
                && !holder->ip.isEmpty()) {
                return;
            }
            Move(*holder, present, station.ip);
            Complete(*holder, station);
        } else if (present && present->mac.isEmpty()) {
            Complete(*present, station);
        } else if (!present || !rules.keepsAddresses) {
            Leave(present);
            Make(station);
        }
    }

    void Move(const Holder &holder, const std::optional<Holder> &present, const QString &ip)
    {
        if (IsSameAddress(holder.ip, ip)) {
            return;
        }
        Leave(present);
        books.Write("UPDATE users SET ip_addr = (?) WHERE user_id = (?)", ip, holder.id);
        taken.moved.append(holder.id);
    }

    void Leave(const std::optional<Holder> &present)
    {
        if (present) {
            books.Write("UPDATE users SET ip_addr = '' WHERE user_id = (?)", present->id);
            taken.moved.append(present->id);
        }
    }

    // What is known of the station and not yet of its user.
    void Complete(const Holder &holder, const Station &station)
    {
        const QString name = Cleaned(station.name);
        bool completed = false;
        if (!station.mac.isEmpty() && holder.mac != station.mac) {
            books.Write(
                "UPDATE users SET mac_addr = (?)  WHERE user_id = (?)", station.mac, holder.id);
            completed = true;
        }
        if (!name.isEmpty() && holder.stationName.isEmpty()) {
            books.Write("UPDATE users SET stationname = (?) WHERE user_id = (?)", name, holder.id);
            completed = true;
            if (holder.userName == holder.ip) {
                books.Write("UPDATE users SET username = (?) WHERE user_id = (?)",
                            FreeName(name, holder.ip),
                            holder.id);
            }
        }
        if (completed) {
            taken.completed.append(holder.id);
        }
    }

    // The name, or the address where somebody has it.
    [[nodiscard]] QString FreeName(const QString &name, const QString &ip)
    {
        const bool isFree = !name.isEmpty()
            && !books.Take(Exists("SELECT user_id FROM users WHERE username = (?)", name));
        return isFree ? name : ip;
    }

    void Make(const Station &station)
    {
        const QString name = Cleaned(station.name);
        const NewUserProfile &profile = rules.profile;
        const LimitPeriod period =
            profile.period == LimitPeriod::Day ? LimitPeriod::Day : LimitPeriod::Month;
        books.Write(
            "INSERT INTO users (username, stationname, ip_addr, mac_addr, group_id, mode, "
            "traflim, timelim, trafperiod, timeperiod, blocked, blockreason, authreq) VALUES "
            "((?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?))",
            FreeName(name, station.ip),
            name,
            station.ip,
            station.mac,
            kEverybodyGroup,
            KnownMode(profile.mode),
            profile.trafficLimit,
            profile.timeLimit,
            period,
            period,
            profile.blocked ? 1U : 0U,
            profile.blocked ? BlockReason::Administrator : BlockReason::None,
            profile.authRequired ? 1U : 0U);
        if (const auto made = OfAddress(station.ip)) {
            taken.made.append(made->id);
        }
    }

    Books &books;
    const StationRules &rules;
    StationsTaken taken;
};

} // namespace

Result<StationsTaken> TakeStations(const std::vector<Station> &stations, const StationRules &rules)
{
    StationsTaken taken;
    const auto done = books::InTransaction([&](Books &books) {
        Taking taking(books, rules);
        for (const Station &station : stations) {
            taking.Take(station);
        }
        taken = taking.Taken();
    });
    return done.map([&taken](bool) { return taken; });
}
