#include "db/demo_people.h"

#include <QList>

#include <array>

using namespace Qt::StringLiterals;

const char *const kDemoGroupColumns =
    "name, descrip, mode, traflim, trafperiod, trafprice, own_price, blocked, blockreason";

const char *const kDemoUserColumns =
    "username, stationname, fullname, descrip, ip_addr, mac_addr, group_id, mode, traflim, timelim, "
    "trafperiod, timeperiod, trafprice, own_price, blocked, blockreason, authreq, monitored, "
    "portaccess, timeaccess, timeblocked, virtual";

namespace {

constexpr std::array kFirstNames {
    "Anna",  "Ben",      "Clara",     "David",      "Elena",      "Felix",      "Grace", "Hugo",
    "Ines",  "Jakob",    "Karin",     "Leo",        "Maria",      "Nils",       "Olga",  "Paul",
    "Quinn", "Rosa",     "Simon",     "Tara",       "Uwe",        "Vera",       "Walt",  "Xenia",
    "Yusuf", "Zo\u00eb", "Jos\u00e9", "Bj\u00f6rn", "Chlo\u00e9", "S\u00f8ren", "Aisha", "Bruno",
    "Carla", "Diego",    "Emma",      "Farid",      "Greta",      "Hana",       "Ivan",  "Judith"};

constexpr std::array kLastNames {
    "Adler",  "Becker", "Castro",  "Dubois", "Eriksen",  "Fischer", "Garcia", "Hansen",
    "Ito",    "Jansen", "Keller",  "Lopez",  "Meyer",    "Novak",   "Olsen",  "Peters",
    "Quist",  "Rossi",  "Silva",   "Tanaka", "Urban",    "Vogel",   "Weber",  "Xu",
    "Young",  "Zeman",  "Archer",  "Brandt", "Cohen",    "Duarte",  "Engel",  "Fontaine",
    "Graf",   "Horvat", "Ilves",   "Jung",   "Kowalski", "Lind",    "Moreau", "Nagy",
    "Okafor", "Petrov", "Richter", "Santos", "Thomsen",  "Ullman",  "Vidal",  "Walker",
    "Yilmaz", "Zimmer", "Aalto",   "Bauer",  "Conti",    "Dietz",   "Egger",  "Ferrari",
    "Gruber", "Huber",  "Ivanov",  "Jensen"};

constexpr std::array kDepartments {
    "Accounting", "Sales",     "Engineering", "Purchasing", "Visitors",  "Marketing",
    "Personnel",  "Reception", "Workshop",    "Laboratory", "Logistics", "Management",
    "Library",    "Support",   "Training",    "Design",     "Quality",   "Legal",
    "Warehouse",  "Research",  "Night shift", "Cafeteria",  "Archive",   "Press"};

constexpr std::array kMakers {"00163E", "3C5282", "A4BB6D", "D89EF3", "F0761C"};

// Every first name with every last one before a pair comes again.
constexpr int kNamePairs = kFirstNames.size() * kLastNames.size();

QByteArray PlainLower(const QString &name)
{
    QByteArray plain;
    for (const QChar c : name.normalized(QString::NormalizationForm_D)) {
        if (c.unicode() < 0x80) {
            plain += c.toLower().toLatin1();
        } else if (c == u'\u00f8') {
            plain += 'o';
        }
    }
    return plain;
}

QByteArray Address(int index)
{
    return u"10.%1.%2.%3"_s.arg(index / 254 / 256)
        .arg(index / 254 % 256)
        .arg(index % 254 + 1)
        .toLatin1();
}

QByteArray Hardware(int index)
{
    const auto number = u"%1"_s.arg(index * 7 % 0x1000000, 6, 16, QChar(u'0')).toUpper().toLatin1();
    return kMakers[static_cast<size_t>(index) % kMakers.size()] + number;
}

AccountingMode UserMode(DemoChance &chance)
{
    const int share = chance.Below(100);
    return share < 25 ? AccountingMode::NoControl
        : share < 65  ? AccountingMode::Traffic
        : share < 80  ? AccountingMode::Provider
        : share < 90  ? AccountingMode::Time
                      : AccountingMode::TrafficAndTime;
}

template <typename Code>
qint32 Number(Code value)
{
    return static_cast<qint32>(value);
}

} // namespace

DemoGroup MakeDemoGroup(int index)
{
    constexpr std::array kModes {
        AccountingMode::NoControl, AccountingMode::Traffic, AccountingMode::Provider};
    return {0, kModes[static_cast<size_t>(index) % kModes.size()], index == 4};
}

SqlValues DemoGroupRow(int index, const DemoGroup &group, DemoChance &chance)
{
    const auto department = static_cast<size_t>(index);
    const bool known = department < kDepartments.size();
    const QByteArray name =
        known ? QByteArray(kDepartments[department]) : "Branch " + QByteArray::number(index + 1);
    const bool ownPrice = chance.Percent(25);
    return {name,
            QByteArray("Building ") + char('A' + index % 4),
            Number(group.mode),
            20000 + 5000 * chance.Below(8),
            Number(LimitPeriod::Month),
            ownPrice ? 0.01 * (1 + chance.Below(5)) : 0.0,
            ownPrice ? 1 : 0,
            group.blocked ? 1 : 0,
            group.blocked ? Number(BlockReason::Administrator) : 0};
}

SqlValues DemoUserRow(int index, const QList<DemoGroup> &groups, DemoChance &chance)
{
    const int pair = index % kNamePairs * 1327 % kNamePairs; // no common divisor: each pair once
    const auto first =
        QString::fromUtf8(kFirstNames[static_cast<size_t>(pair) % kFirstNames.size()]);
    const auto last = QString::fromUtf8(kLastNames[static_cast<size_t>(pair) / kFirstNames.size()]);
    const int round = index / kNamePairs;
    const DemoGroup &group = groups[chance.Below(static_cast<int>(groups.size()))];
    const bool blocked = group.blocked || chance.Percent(2);
    const bool hasTimes = chance.Percent(8);
    const bool outsideTimes = hasTimes && chance.Percent(30);
    const bool daily = chance.Percent(20);
    const bool ownPrice = chance.Percent(10);
    const int megabytes = 1000 * (2 + 2 * chance.Below(5));
    const int hours = 40 + 20 * chance.Below(6);
    const auto limitPeriod = Number(daily ? LimitPeriod::Day : LimitPeriod::Month);
    return {
        PlainLower(first) + '.' + PlainLower(last)
            + (round == 0 ? QByteArray() : QByteArray::number(round + 1)),
        "PC-" + QByteArray::number(index + 1).rightJustified(4, '0'),
        QString(first + u' ' + last).toUtf8(),
        u"Room %1.%2"_s.arg(1 + index % 4).arg(1 + index / 4 % 60, 2, 10, QChar(u'0')).toLatin1(),
        Address(index),
        Hardware(index),
        group.id,
        Number(UserMode(chance)),
        daily ? megabytes / 20 : megabytes,
        daily ? hours / 20 : hours,
        limitPeriod,
        limitPeriod,
        ownPrice ? 0.01 * (1 + chance.Below(5)) : 0.0,
        ownPrice ? 1 : 0,
        blocked ? 1 : 0,
        blocked ? Number(BlockReason::Administrator) : 0,
        chance.Percent(10) ? 1 : 0,
        chance.Percent(3) ? 0 : 1,
        chance.Percent(8) ? 1 : 0,
        hasTimes ? 1 : 0,
        hasTimes && !outsideTimes ? 1 : 0,
        chance.Percent(2) ? 1 : 0};
}
