#include "exchange/user_writer.h"

#include <string>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kRowsAtOnce = 2000; // of staged ones
constexpr size_t kInsertsAtOnce =
    4; // with all values of four users a statement has no room for more

// Null would be no text at all.
QString Text(const QString &text)
{
    return text.isNull() ? u""_s : text;
}

// A stored number beyond the range of its column is the bits of a negative one.
double Stored(quint32 number)
{
    return static_cast<double>(static_cast<qint32>(number));
}

template <typename Code>
double Number(Code code)
{
    return static_cast<double>(static_cast<quint32>(code));
}

std::string InsertText(size_t users)
{
    std::string text = "INSERT INTO users (username, stationname, fullname, descrip, ip_addr, "
                       "mac_addr, group_id, mode, traflim, timelim, trafperiod, timeperiod, "
                       "authreq, own_price, trafprice) VALUES ";
    for (size_t user = 0; user < users; ++user) {
        text += user == 0 ? "" : ", ";
        text += "((?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?), (?))";
    }
    return text;
}

void Append(ValueList &values, const ImportRow &row)
{
    const UserValues &user = row.after;
    const Limits &limits = user.limits;
    const auto code = [](auto value) { return static_cast<quint32>(value); };
    const ValueList ofUser {row.name,
                            Text(user.workstation),
                            Text(user.fullName),
                            Text(user.description),
                            Text(user.ipAddress),
                            Text(user.macAddress),
                            user.groupId.value,
                            code(user.mode),
                            limits.traffic.value,
                            limits.time.value,
                            code(limits.period),
                            code(limits.timePeriod),
                            code(user.authRequired),
                            code(limits.ownPrice),
                            limits.price};
    values.insert(values.end(), ofUser.begin(), ofUser.end());
}

} // namespace

void UserWriter::Write()
{
    WriteTexts();
    WriteAddresses();
    WriteLimits();
    InsertNew();
}

void UserWriter::InsertNew()
{
    const std::string several = InsertText(kInsertsAtOnce);
    ValueList values;
    size_t waiting = 0;
    for (const ImportRow &row : rows) {
        if (row.state != ImportState::New || run.IsStopped()) {
            continue;
        }
        Append(values, row);
        if (++waiting == kInsertsAtOnce) {
            run.Write(several.c_str(), values);
            values.clear();
            waiting = 0;
        }
    }
    if (waiting > 0) {
        run.Write(InsertText(waiting).c_str(), values);
    }
}

template <typename IsMeant, typename Add>
void UserWriter::WriteChanged(const char *sqlText, const IsMeant &isMeant, const Add &add)
{
    StagedRows staged;
    qsizetype count = 0;
    for (const ImportRow &row : rows) {
        if (row.state != ImportState::Changed || !isMeant(row)) {
            continue;
        }
        add(staged, row.userId.value, row.after);
        if (++count % kRowsAtOnce == 0) {
            run.Write(sqlText, staged);
            staged = {};
        }
    }
    if (!staged.IsEmpty()) {
        run.Write(sqlText, staged);
    }
}

void UserWriter::WriteTexts()
{
    WriteChanged(
        "UPDATE users SET fullname = s.t, descrip = s.u, stationname = s.v "
        "FROM STAGED (?) AS_ROWS s WHERE users.user_id = s.k",
        [](const ImportRow &row) {
            const auto &[before, after] = std::tie(row.before, row.after);
            return before.fullName != after.fullName || before.description != after.description
                || before.workstation != after.workstation;
        },
        [](StagedRows &staged, quint32 userId, const UserValues &after) {
            staged.Add(userId,
                       {},
                       {Text(after.fullName), Text(after.description), Text(after.workstation)});
        });
}

void UserWriter::WriteAddresses()
{
    WriteChanged(
        "UPDATE users SET ip_addr = s.t, mac_addr = s.u, group_id = s.n1, authreq = s.n2 "
        "FROM STAGED (?) AS_ROWS s WHERE users.user_id = s.k",
        [](const ImportRow &row) {
            const auto &[before, after] = std::tie(row.before, row.after);
            return before.ipAddress != after.ipAddress || before.macAddress != after.macAddress
                || before.groupId != after.groupId || before.authRequired != after.authRequired;
        },
        [](StagedRows &staged, quint32 userId, const UserValues &after) {
            staged.Add(userId,
                       {Stored(after.groupId.value), after.authRequired ? 1.0 : 0.0},
                       {Text(after.ipAddress), Text(after.macAddress)});
        });
}

void UserWriter::WriteLimits()
{
    const auto isMeant = [](const ImportRow &row) {
        return row.ChangesAccess() && !row.NeedsSheet();
    };
    WriteChanged("UPDATE users SET mode = s.n1, traflim = s.n2, timelim = s.n3 "
                 "FROM STAGED (?) AS_ROWS s WHERE users.user_id = s.k",
                 isMeant,
                 [](StagedRows &staged, quint32 userId, const UserValues &after) {
                     staged.Add(userId,
                                {Number(after.mode),
                                 Stored(after.limits.traffic.value),
                                 Stored(after.limits.time.value)});
                 });
    WriteChanged(
        "UPDATE users SET trafperiod = s.n1, timeperiod = s.n2, own_price = s.n3, trafprice = s.n4 "
        "FROM STAGED (?) AS_ROWS s WHERE users.user_id = s.k",
        isMeant,
        [](StagedRows &staged, quint32 userId, const UserValues &after) {
            staged.Add(userId,
                       {Number(after.limits.period),
                        Number(after.limits.timePeriod),
                        after.limits.ownPrice ? 1.0 : 0.0,
                        after.limits.price});
        });
}
