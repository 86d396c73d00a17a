#include "access/user_search.h"

#include "access/account_use.h"
#include "base/day.h"
#include "db/query.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// A statement while it is written, with the values of its markers.
struct Statement
{
    QByteArray text;
    ValueList values {};

    Statement &operator<<(const char *part)
    {
        text.append(part);
        return *this;
    }

    template <typename Value>
    Statement &Bind(Value value)
    {
        values.emplace_back(value);
        return *this;
    }
};

// What is looked for stands for itself, whatever it means in a pattern.
QString Literally(const QString &text)
{
    QString literal;
    for (const QChar c : text) {
        if (c == u'%' || c == u'_' || c == u'!') {
            literal += u'!';
        }
        literal += c;
    }
    return literal;
}

QString Somewhere(const QString &text)
{
    return u'%' + Literally(text) + u'%';
}

bool IsPlain(const QString &text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

// The text with its letters beyond a to z in another case: the first ones of words, and the others.
QString Recased(QString text, bool capitalFirst, bool capitalOthers)
{
    bool isFirst = true;
    for (QChar &c : text) {
        if (c.unicode() >= 0x80) {
            c = (isFirst ? capitalFirst : capitalOthers) ? c.toUpper() : c.toLower();
        }
        isFirst = !c.isLetterOrNumber();
    }
    return text;
}

// As the text is mostly written, where the engine knows the letter case of a to z alone: as it is, all
// small, all capital, and as a name.
QStringList Writings(const QString &text)
{
    if (IsPlain(text) || query::FoldsEveryLetter()) {
        return {text};
    }
    QStringList writings {
        text, Recased(text, false, false), Recased(text, true, true), Recased(text, true, false)};
    writings.removeDuplicates();
    return writings;
}

void AddHolds(Statement &statement, const char *column, const QString &pattern)
{
    const bool plain = IsPlain(pattern);
    const char *letters = plain ? " PLAIN_CASE) " : " LETTER_CASE) ";
    if (!plain) {
        statement << "(OCTETS_OF (" << column << ") EXCEEDING_LETTERS_OF (" << column << ") AND (";
    }
    const char *before = "";
    for (const QString &writing : Writings(pattern)) {
        statement << std::exchange(before, " OR ") << "CASE_FOLDED (" << column << letters
                  << "HOLDS CASE_FOLDED ((?)" << letters << "PLAIN_CASE ESCAPE '!'";
        statement.Bind(writing);
    }
    statement << (plain ? "" : "))");
}

// Of an address of any kind: "10.1.2", "fe80::1".
bool IsPartOfAddress(const QString &text)
{
    static const QRegularExpression shape(u"^[0-9A-Fa-f.:]+$"_s);
    static const QRegularExpression letters(u"^[A-Fa-f]+$"_s);
    return shape.match(text).hasMatch() && !letters.match(text).hasMatch();
}

// One to four octets with points between them; digits alone are none.
bool IsPartOfIpv4(const QString &text)
{
    static const QRegularExpression shape(
        uR"(^(0|[1-9][0-9]{0,2})(\.(0|[1-9][0-9]{0,2})){0,3}\.?$)"_s);
    return text.contains(u'.') && shape.match(text).hasMatch();
}

// The digits of a hardware address, or of a part of it, as it is stored; empty for any other text. A few
// digits without separators are rather part of a name or a number.
QString HardwareDigits(const QString &text)
{
    static const QRegularExpression begun(u"^([0-9A-Fa-f]{2}[:-])+[0-9A-Fa-f]{0,2}$"_s);
    static const QRegularExpression pairs(
        uR"(^[0-9A-Fa-f]{2}([\p{P}\p{S}][0-9A-Fa-f]{2})+([\p{P}\p{S}][0-9A-Fa-f]?)?$)"_s);
    static const QRegularExpression fours(uR"(^([0-9A-Fa-f]{4}[\p{P}\p{S}])+[0-9A-Fa-f]{0,4}$)"_s);
    static const QRegularExpression halves(uR"(^[0-9A-Fa-f]{6}[\p{P}\p{S}][0-9A-Fa-f]{0,6}$)"_s);
    static const QRegularExpression bare(u"^[0-9A-Fa-f]{4,12}$"_s);
    for (const auto *shape : {&begun, &pairs, &fours, &halves, &bare}) {
        if (shape->match(text).hasMatch() && !IsPartOfIpv4(text)) {
            QString digits = text.toUpper();
            digits.removeIf([](QChar c) { return !c.isLetterOrNumber(); });
            return digits;
        }
    }
    return {};
}

// How rows are held against other tables: one after the other for a few of them, else all at once. A
// count leaves an engine no choice: for a few rows some would read a whole table.
enum class Rows { Few, Many };

// For a few rows a COUNT is asked of each. For many rows, whether any group fits at all is asked once:
// mostly none does, and no row need then be looked up among them.
void AddNames(Statement &statement, const QString &pattern, Rows rows)
{
    const bool few = rows == Rows::Few;
    if (few) {
        statement << "0 < (SELECT COUNT(*) FROM groups WHERE groups.group_id = users.group_id AND ";
    } else {
        statement << "(0 < (SELECT COUNT(*) FROM groups WHERE ";
        AddHolds(statement, "name", pattern);
        statement << ") AND group_id IN (SELECT group_id FROM groups WHERE ";
    }
    AddHolds(statement, "name", pattern);
    statement << (few ? ") OR 0 < (SELECT COUNT(*) FROM logins WHERE userid = user_id AND "
                      : ")) OR user_id IN (SELECT userid FROM logins WHERE ");
    AddHolds(statement, "login", pattern);
    statement << ")";
}

void AddText(Statement &statement, const QString &text, Rows rows)
{
    const QString pattern = Somewhere(text);
    statement << "(";
    for (const char *column : {"username", "fullname", "stationname", "descrip"}) {
        AddHolds(statement, column, pattern);
        statement << " OR ";
    }
    if (IsPartOfAddress(text)) {
        AddHolds(statement, "ip_addr", pattern);
        statement << " OR ";
    }
    if (const QString digits = HardwareDigits(text); !digits.isEmpty()) {
        AddHolds(statement, "mac_addr", Somewhere(digits));
        statement << " OR ";
    }
    AddNames(statement, pattern, rows);
    statement << ")";
}

// The hardware address, or each of the texts for itself.
void AddRun(Statement &statement, const DigitRun &run, const QStringList &texts, Rows rows)
{
    statement << "(";
    AddHolds(statement, "mac_addr", Somewhere(run.digits));
    const char *before = " OR (";
    for (const QString &text : texts.mid(run.first, run.count)) {
        statement << std::exchange(before, " AND ");
        AddText(statement, text, rows);
    }
    statement << "))";
}

void AddTexts(Statement &statement, const UserFilter &filter, Rows rows)
{
    for (qsizetype index = 0; index < filter.texts.size(); ++index) {
        const auto run = std::ranges::find(filter.runs, index, &DigitRun::first);
        statement << " AND ";
        if (run == filter.runs.end()) {
            AddText(statement, filter.texts[index], rows);
        } else {
            AddRun(statement, *run, filter.texts, rows);
            index += run->count - 1;
        }
    }
}

void AddGroup(Statement &statement, const FilterGroup &group)
{
    statement << " AND group_id IN (SELECT group_id FROM groups WHERE ";
    AddHolds(statement, "name", group.whole ? Literally(group.name) : Literally(group.name) + u'%');
    statement << ")";
}

// The octets that both ends share, with their points: an index finds what begins so.
QString SharedBegin(const AddressSpan &span)
{
    QString begin;
    for (int octet = 0; octet < 3 && Octet(span.first, octet) == Octet(span.last, octet); ++octet) {
        begin += QString::number(Octet(span.first, octet)) + u'.';
    }
    return begin;
}

// Behind every text that begins with `begin`.
QString BehindAll(const QString &begin)
{
    return begin + QChar(0xFFFF);
}

void AddBegin(Statement &statement, const char *column, const QString &begin)
{
    statement << column << " >= (?) AND " << column << " < (?)";
    statement.Bind(begin).Bind(BehindAll(begin));
}

void AddSpan(Statement &statement, const AddressSpan &span)
{
    if (const QString begin = SharedBegin(span); !begin.isEmpty()) {
        statement << " AND ";
        AddBegin(statement, "ip_addr", begin);
    }
    statement << " AND ADDRESS_NUMBER BETWEEN (?) AND (?)";
    statement.Bind(double(span.first)).Bind(double(span.last));
}

void AddModes(Statement &statement, const QList<AccountingMode> &modes)
{
    statement << " AND mode IN (";
    for (const AccountingMode mode : modes) {
        statement << (mode == modes.constFirst() ? "(?)" : ", (?)");
        statement.Bind(static_cast<quint32>(mode));
    }
    statement << ")";
}

// What holds besides for each user that the filter finds.
void AddConditions(Statement &statement, const UserFilter &filter, Rows rows)
{
    for (const FilterGroup &group : filter.groups) {
        AddGroup(statement, group);
    }
    for (const AddressSpan &span : filter.spans) {
        AddSpan(statement, span);
    }
    for (const QList<AccountingMode> &modes : filter.modes) {
        AddModes(statement, modes);
    }
    if (filter.blocked) {
        statement << " AND blocked <> 0 AND blockreason <> (?)";
        statement.Bind(static_cast<quint32>(BlockReason::ShownAsAllowed));
    }
    if (filter.usedUp) {
        statement << " AND blocked <> 0 AND blockreason IN ((?), (?))";
        statement.Bind(static_cast<quint32>(BlockReason::TrafficUsedUp))
            .Bind(static_cast<quint32>(BlockReason::TimeUsedUp));
    }
    AddTexts(statement, filter, rows);
}

// How the table of users is read.
QByteArray Read(const char *sqlText, const char *how)
{
    return QByteArray(sqlText).replace(" WHERE ", how);
}

// A text in the middle of a name is found by no index, and no index has the order of accounts. To look
// at the rows in the order of one costs many times as much as to look at them as they lie.
QByteArray Begun(const char *sqlText, const UserFilter &filter, bool byAccount = false)
{
    const bool byIndex = !filter.groups.isEmpty() || !filter.spans.isEmpty()
        || (filter.texts.isEmpty() && !byAccount);
    return byIndex ? QByteArray(sqlText) : Read(sqlText, " SCANNED WHERE ");
}

void AddOrder(Statement &statement, ListOrder order)
{
    if (user_order::IsByAccount(order.column)) {
        statement.text +=
            AccountOrderClause(order.column, order.ascending, Today(), statement.values);
    } else {
        statement.text += user_list::OrderClause(order.column, order.ascending);
    }
}

// `besides` is one more condition, with " AND " before it.
Statement EveryRow(const UserFilter &filter, ListOrder order, const char *besides = "")
{
    Statement statement {Begun(user_list::kSelect, filter, user_order::IsByAccount(order.column))};
    AddConditions(statement, filter, Rows::Many);
    statement << besides;
    AddOrder(statement, order);
    return statement;
}

const QString &LongestText(const UserFilter &filter)
{
    return *std::ranges::max_element(filter.texts, {}, &QString::size);
}

// Several screens full: each row is fetched by itself, and all that matches follows soon.
constexpr char kNearest[] = " LIMIT 250";

// The ids of the first users, in a column's order, whose column begins so.
void AddBeginnings(Statement &statement, const char *column, const QString &begin)
{
    for (const QString &writing : Writings(begin)) {
        statement << " SELECT user_id FROM (SELECT user_id FROM users WHERE monitored = true AND ";
        AddBegin(statement, column, writing);
        statement << " ORDER BY " << column << kNearest << ") AS by_" << column << " UNION";
    }
}

void AddLoginBeginnings(Statement &statement, const QString &begin)
{
    const char *before = "";
    for (const QString &writing : Writings(begin)) {
        statement << std::exchange(before, " UNION")
                  << " SELECT userid FROM (SELECT userid FROM logins WHERE ";
        AddBegin(statement, "login", writing);
        statement << " ORDER BY login" << kNearest << ") AS by_login";
    }
}

Statement Beginnings(const UserFilter &filter, ListOrder order)
{
    const QString &text = LongestText(filter);
    Statement statement {Read(user_list::kSelect, " BY_KEY WHERE ")};
    statement << " AND user_id IN (SELECT user_id FROM (";
    for (const char *column : {"username", "fullname", "stationname"}) {
        AddBeginnings(statement, column, text);
    }
    if (IsPartOfAddress(text)) {
        AddBeginnings(statement, "ip_addr", text);
    }
    if (const QString digits = HardwareDigits(text); !digits.isEmpty()) {
        AddBeginnings(statement, "mac_addr", digits);
    }
    for (const DigitRun &run : filter.runs) {
        AddBeginnings(statement, "mac_addr", run.digits);
    }
    AddLoginBeginnings(statement, text);
    statement << ") AS near)";
    AddConditions(statement, filter, Rows::Few);
    AddOrder(statement, order);
    return statement;
}

Result<UserList> First(Statement statement, bool withGroupNames)
{
    statement << " LIMIT 1000";
    return user_list::Read(statement.text, statement.values, 0, withGroupNames);
}

// Behind the rows that are there, without those that changed their mode meanwhile and come again.
UserList Joined(UserList list, const UserList &others)
{
    const QSet<UserId> there(list.rowUserIds.begin(), list.rowUserIds.end());
    for (qsizetype row = 0; row < others.rows.size() && list.rows.size() < kUserListCapacity;
         ++row) {
        if (!there.contains(others.rowUserIds[row])) {
            list.rows.append(others.rows[row]);
            list.rowUserIds.append(others.rowUserIds[row]);
        }
    }
    return list;
}

// Users of traffic stand before all others: where they fill the list, no other's account is looked at.
Result<UserList> FirstByAccount(const UserFilter &filter, ListOrder order, bool withGroupNames)
{
    auto list = First(EveryRow(filter, order, " AND mode IN (1, 5)"), withGroupNames);
    if (!list || list->rows.size() == kUserListCapacity) {
        return list;
    }
    return First(EveryRow(filter, order, " AND NOT mode IN (1, 5)"), withGroupNames)
        .map([&list](const UserList &others) { return Joined(*std::move(list), others); });
}

} // namespace

bool HasQuickSearch(const UserFilter &filter)
{
    return !filter.texts.isEmpty();
}

Result<UserList> FindUsersQuickly(const UserFilter &filter, ListOrder order, bool withGroupNames)
{
    return First(Beginnings(filter, order), withGroupNames);
}

Result<UserList> FindUsers(const UserFilter &filter, ListOrder order, bool withGroupNames)
{
    return user_order::IsByAccount(order.column) ? FirstByAccount(filter, order, withGroupNames)
                                                 : First(EveryRow(filter, order), withGroupNames);
}

Result<std::vector<UserId>> FindUserIds(const UserFilter &filter, ListOrder order)
{
    Statement statement {
        Begun("SELECT user_id FROM users WHERE monitored = true AND group_id<>0", filter)};
    AddConditions(statement, filter, Rows::Many);
    statement << user_list::OrderClause(order.column, order.ascending).constData();
    return ReadAll(
        statement.text.constData(),
        [](const Row &row) { return row.Id<UserId>(1); },
        statement.values);
}

Result<quint32> CountFoundUsers(const UserFilter &filter)
{
    Statement statement {Begun(user_list::kCount, filter)};
    AddConditions(statement, filter, Rows::Many);
    return ReadOne(
               statement.text.constData(),
               [](const Row &row) { return row.Integer(1); },
               statement.values)
        .map([](const std::optional<quint32> &count) { return count.value_or(0); });
}

std::optional<Failure> ForEachFoundUser(const UserFilter &filter,
                                        ListOrder order,
                                        FunctionRef<void()> restart,
                                        FunctionRef<bool(const UserRow &, UserId)> take)
{
    const Statement statement = EveryRow(filter, order);
    return user_list::ForEach(statement.text, statement.values, restart, take);
}
