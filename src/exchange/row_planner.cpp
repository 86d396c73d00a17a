#include "exchange/row_planner.h"

#include "accounts/credit_entry.h"
#include "admin/login_table.h"
#include "admin/password_digest.h"
#include "base/day.h"
#include "base/mac_address.h"
#include "base/moment_entry.h"
#include "base/text.h"
#include "exchange/cell_values.h"
#include "exchange/user_cells.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportRow)
};

// As the accounting service makes a user.
UserValues ValuesOfNewUser(const DefaultProfile &profile, const QString &everybody)
{
    const auto number = [](std::optional<qint32> limit) {
        return static_cast<quint32>(std::max(limit.value_or(0), 0));
    };
    const LimitPeriod period =
        profile.period == LimitPeriod::Day ? LimitPeriod::Day : LimitPeriod::Month;
    UserValues values;
    values.groupId = kEverybodyGroup;
    values.groupName = everybody;
    values.mode = ModeWord(profile.mode).isEmpty() ? AccountingMode::NoControl : profile.mode;
    values.limits.traffic = WholeMegabytes {number(profile.trafficLimit)};
    values.limits.time = WholeHours {number(profile.timeLimit)};
    values.limits.period = period;
    values.limits.timePeriod = period;
    values.blocked = profile.blocked;
    values.authRequired = profile.authRequired;
    return values;
}

QString WrongNumber(NumberFault fault, const NumberBounds &bounds)
{
    switch (fault) {
    case NumberFault::OutOfRange:
        return Words::tr("it is to be from %1 to %2")
            .arg(FigureOf(bounds.least), FigureOf(bounds.most));
    case NumberFault::TooPrecise:
        return Words::tr("at most %1 decimals are taken").arg(bounds.decimals);
    case NumberFault::Ambiguous:
        return Words::tr("its mark may part thousands or decimals");
    default:
        return bounds.decimals == 0 ? Words::tr("it is no whole number")
                                    : Words::tr("it is no number");
    }
}

} // namespace

// The reading of one row, cell by cell; the first thing that is wrong stays.
class RowReading
{
public:
    RowReading(const RowPlanner &rowPlanner, const ImportLine &fileLine)
        : planner(rowPlanner)
        , line(fileLine)
    {
        row.line = line.number;
        row.name = Raw(ImportColumn::UserName);
        row.reason = line.fault;
    }

    ImportRow Read()
    {
        FindUser();
        if (row.reason.isEmpty()) {
            row.after = row.before;
            TakeTexts();
            TakeAddresses();
            TakeGroup();
            TakeAccess();
            TakeLimits();
            TakeFlag(ImportColumn::Blocked, row.after.blocked);
            TakeFlag(ImportColumn::LoginRequired, row.after.authRequired);
            TakeLogin();
            TakeCredit();
        }
        return std::move(row);
    }

private:
    [[nodiscard]] QString Raw(ImportColumn column) const
    {
        return line.cells[static_cast<size_t>(column)];
    }

    [[nodiscard]] QString Trimmed(ImportColumn column) const { return Raw(column).trimmed(); }

    [[nodiscard]] bool Has(ImportColumn column) const { return planner.table.Has(column); }

    // Whether the file wants another value than the user has. An empty cell of `column` wants none.
    [[nodiscard]] bool Wants(ImportColumn column) const
    {
        const QString cell = Trimmed(column);
        return Has(column) && !cell.isEmpty() && cell != CellOf(column, row.before);
    }

    void Refuse(const QString &reason)
    {
        if (row.reason.isEmpty()) {
            row.reason = reason;
        }
    }

    void RefuseCell(ImportColumn column, const QString &why)
    {
        Refuse(Words::tr("%1 \"%2\": %3", "column, value, what is wrong")
                   .arg(LabelOf(column), Raw(column).left(60), why));
    }

    // A column would cut what is longer, and a name of several lines is seen by nobody.
    void CheckText(ImportColumn column, const QString &text)
    {
        switch (FaultIn(text)) {
        case TextFault::NotShowable:
            return RefuseCell(column, Words::tr("it has characters that cannot be shown"));
        case TextFault::TooLong:
            return RefuseCell(column, Words::tr("it is too long"));
        case TextFault::None:
            break;
        }
    }

    void FindUser()
    {
        if (row.name.trimmed().isEmpty()) {
            Refuse(Words::tr("The row has no user name"));
            return;
        }
        const auto found = planner.users.value(NameKey(row.name));
        if (found.isEmpty()) {
            row.name = row.name.trimmed();
            CheckText(ImportColumn::UserName, row.name);
            row.before = planner.newUser;
            return;
        }
        const StoredUserRow &user = *found.constFirst();
        if (found.size() > 1) {
            Refuse(Words::tr("%1 users have this name").arg(found.size()));
        } else if (!user.isMonitored) {
            Refuse(Words::tr("This user is not monitored"));
        }
        row.userId = user.userId;
        row.name = user.name;
        row.before = user.values;
        row.isBlocked = user.isBlocked;
        row.hasUsedUp = planner.stored.blockedRecords.contains(user.userId);
        logins = user.logins;
    }

    void TakeTexts()
    {
        TakeText(ImportColumn::FullName, row.after.fullName);
        TakeText(ImportColumn::Description, row.after.description);
        TakeText(ImportColumn::Workstation, row.after.workstation);
    }

    // An empty cell empties a text.
    void TakeText(ImportColumn column, QString &text)
    {
        if (Has(column) && Raw(column) != text) {
            CheckText(column, Raw(column));
            text = Raw(column);
        }
    }

    void TakeAddresses()
    {
        const QString ip = Trimmed(ImportColumn::IpAddress);
        if (Has(ImportColumn::IpAddress) && ip != row.before.ipAddress) {
            const auto address = Ipv4From(ip);
            if (!ip.isEmpty() && (!address || *address == 0)) {
                RefuseCell(ImportColumn::IpAddress, Words::tr("it is no IP address"));
            } else if (address && planner.context.excluded.contains(*address)) {
                RefuseCell(ImportColumn::IpAddress, Words::tr("the address is excluded"));
            }
            row.after.ipAddress = address ? DottedText(*address) : QString();
        }
        const QString mac = Trimmed(ImportColumn::MacAddress);
        if (Has(ImportColumn::MacAddress) && mac != row.before.macAddress) {
            const auto address = MacFrom(mac);
            if (!mac.isEmpty() && !address) {
                RefuseCell(ImportColumn::MacAddress,
                           Words::tr("a MAC address has twelve digits 0 to 9 and A to F"));
            }
            row.after.macAddress = address.value_or(QString());
        }
    }

    void TakeGroup()
    {
        if (!Wants(ImportColumn::Group)) {
            return;
        }
        const QString name = Trimmed(ImportColumn::Group);
        const auto found = planner.groups.constFind(NameKey(name));
        if (found != planner.groups.constEnd()) {
            row.after.groupId = found->groupId;
            row.after.groupName = found->name;
            return;
        }
        CheckText(ImportColumn::Group, name);
        const QString create = Trimmed(ImportColumn::CreateGroup);
        if (!create.isEmpty() && !FlagIn(create)) {
            RefuseCell(ImportColumn::CreateGroup, NoFlagText());
        } else if (!planner.askedGroups.contains(NameKey(name))) {
            RefuseCell(ImportColumn::Group,
                       Words::tr("there is no such group. A column \"%1\" with \"%2\" makes it")
                           .arg(HeadingOf(ImportColumn::CreateGroup), FlagWord(true)));
        }
        row.after.groupId = {};
        row.after.groupName = planner.askedGroups.value(NameKey(name), name);
    }

    [[nodiscard]] static QString NoFlagText()
    {
        return Words::tr("it is to be \"%1\" or \"%2\"").arg(FlagWord(true), FlagWord(false));
    }

    void TakeFlag(ImportColumn column, bool &flag)
    {
        if (Wants(column)) {
            const auto word = FlagIn(Raw(column));
            if (!word) {
                RefuseCell(column, NoFlagText());
            }
            flag = word.value_or(flag);
        }
    }

    void TakeAccess()
    {
        if (Wants(ImportColumn::Access)) {
            const auto mode = ModeIn(Raw(ImportColumn::Access));
            if (!mode) {
                RefuseCell(ImportColumn::Access, Words::tr("there is no such access type"));
            }
            row.after.mode = mode.value_or(row.after.mode);
        }
    }

    void TakeLimits()
    {
        const LimitFields fields = FieldsFor(row.after.mode);
        Limits &limits = row.after.limits;
        TakeLimit(ImportColumn::TrafficLimit, fields.traffic, limits.traffic.value);
        TakeLimit(ImportColumn::TimeLimit, fields.time, limits.time.value);
        if (WantsOfMode(ImportColumn::Period, fields.period)) {
            const auto period = PeriodOf(Raw(ImportColumn::Period));
            if (!period) {
                RefuseCell(ImportColumn::Period,
                           Words::tr("it is to be \"%1\" or \"%2\"")
                               .arg(PeriodWord(LimitPeriod::Day), PeriodWord(LimitPeriod::Month)));
            }
            limits.period = limits.timePeriod = period.value_or(LimitPeriod::None);
        }
        if (fields.period && PeriodWord(PeriodIn(row.after.mode, limits)).isEmpty()
            && row.after.mode != row.before.mode) {
            Refuse(Words::tr("The access type needs an accounting period"));
        }
        TakePrice(fields.rates);
    }

    // A value that the user's access type does not have is a mistake in the file.
    bool WantsOfMode(ImportColumn column, bool hasMode)
    {
        if (Wants(column) && !hasMode) {
            RefuseCell(column, Words::tr("the user's access type has none"));
        }
        return Wants(column) && hasMode;
    }

    void TakeLimit(ImportColumn column, bool hasMode, quint32 &limit)
    {
        if (WantsOfMode(column, hasMode)) {
            limit = static_cast<quint32>(Number(column, NumberBounds {}));
        }
    }

    [[nodiscard]] double Number(ImportColumn column, const NumberBounds &bounds)
    {
        const auto number = NumberFrom(Raw(column), bounds, planner.numbers);
        if (!number) {
            RefuseCell(column, WrongNumber(number.error(), bounds));
        }
        return number.value_or(0.0);
    }

    void TakePrice(bool hasMode)
    {
        if (!WantsOfMode(ImportColumn::Price, hasMode)) {
            return;
        }
        Limits &limits = row.after.limits;
        limits.ownPrice = !IsGlobalPrice(Raw(ImportColumn::Price));
        if (limits.ownPrice) {
            limits.price = Number(ImportColumn::Price, kPriceBounds);
        }
    }

    void TakeLogin()
    {
        const QString name = Trimmed(ImportColumn::Login);
        const bool hasPassword =
            Has(ImportColumn::Password) && !Raw(ImportColumn::Password).isEmpty();
        if (!Has(ImportColumn::Login) || name.isEmpty()) {
            if (hasPassword) {
                Refuse(Words::tr("There is a password and no login"));
            }
            return;
        }
        const auto found = planner.stored.logins.constFind(NameKey(name));
        const bool isStored = found != planner.stored.logins.constEnd();
        const bool isOwn = isStored && logins.contains(found->name);
        if (!isOwn && !logins.isEmpty()) {
            RefuseCell(ImportColumn::Login, Words::tr("the user has another login already"));
        } else if (isStored && found->userId.IsSet() && !isOwn) {
            RefuseCell(ImportColumn::Login, Words::tr("it is the login of another user"));
        } else if (!isStored && !hasPassword) {
            RefuseCell(ImportColumn::Login, Words::tr("a new login needs a password"));
        }
        CheckText(ImportColumn::Login, name);
        row.isNewLogin = !isStored;
        row.after.login = isStored ? found->name : name;
        if (isOwn) {
            row.before.login = row.after.login;
        }
        if (hasPassword) {
            TakePassword(isStored ? found->digest : QString());
        }
    }

    void TakePassword(const QString &storedDigest)
    {
        const QString password = Raw(ImportColumn::Password);
        if (const auto problem = CheckPasswordLength(password)) {
            Refuse(*problem);
            return;
        }
        const auto digest = PasswordDigest(password);
        if (digest != storedDigest) {
            row.digest = digest;
        }
    }

    // A credit is a user's first one: who has any is given none.
    void TakeCredit()
    {
        const QString traffic = Trimmed(ImportColumn::TrafficCredit);
        const QString money = Trimmed(ImportColumn::MoneyCredit);
        if (traffic.isEmpty() && money.isEmpty()
            && !Trimmed(ImportColumn::CreditExpires).isEmpty()) {
            RefuseCell(ImportColumn::CreditExpires,
                       Words::tr("there is no credit that could expire"));
        }
        if ((traffic.isEmpty() && money.isEmpty()) || planner.stored.credits.contains(row.userId)) {
            return;
        }
        const ImportColumn column =
            money.isEmpty() ? ImportColumn::TrafficCredit : ImportColumn::MoneyCredit;
        if (!traffic.isEmpty() && !money.isEmpty()) {
            Refuse(Words::tr("A credit is of traffic or of money"));
        } else if (row.after.mode != AccountingMode::Provider) {
            RefuseCell(column, Words::tr("only users of the access type Provider have credits"));
        } else {
            TakeCreditOf(column);
        }
    }

    void TakeCreditOf(ImportColumn column)
    {
        const CreditKind kind = KindOfCredit(column);
        const double typed = kind == CreditKind::Unlimited
            ? 0.0
            : Number(column, {.least = 0.0, .most = kMostCredit, .decimals = 12});
        if (const auto problem = CheckAmount(kind, typed, planner.context.rate)) {
            Refuse(*problem);
        }
        const QString expires = Trimmed(ImportColumn::CreditExpires);
        const auto day = DayFrom(expires, planner.numbers);
        if (!expires.isEmpty() && !day) {
            RefuseCell(ImportColumn::CreditExpires,
                       Words::tr("it is no day. Write it as in 2026-12-31"));
        } else if (const auto problem = day ? CheckExpiry(*day) : CreditProblem()) {
            RefuseCell(ImportColumn::CreditExpires, *problem);
        }
        if (row.reason.isEmpty()) {
            row.credit = CreditFrom(kind, typed, planner.context.rate, day.value_or(QDate()));
            row.creditFigure = typed;
        }
    }

    [[nodiscard]] CreditKind KindOfCredit(ImportColumn column) const
    {
        if (column == ImportColumn::MoneyCredit) {
            return CreditKind::Money;
        }
        return IsUnlimited(Raw(column)) ? CreditKind::Unlimited : CreditKind::Traffic;
    }

    const RowPlanner &planner;
    const ImportLine &line;
    ImportRow row;
    QStringList logins; // of the user
};

RowPlanner::RowPlanner(const ImportTable &fileTable,
                       const StoredUsers &storedUsers,
                       const ImportContext &importContext)
    : table(fileTable)
    , stored(storedUsers)
    , context(importContext)
    , numbers(NumbersBeside(fileTable.separator))
{
    for (const StoredUserRow &user : stored.users) {
        users[NameKey(user.name)].append(&user);
    }
    QString everybody;
    for (const NamedGroup &group : stored.groups) {
        const QString key = NameKey(group.name);
        if (!groups.contains(key)) {
            groups.insert(key, group);
        }
        if (group.groupId == kEverybodyGroup) {
            everybody = group.name;
        }
    }
    newUser = ValuesOfNewUser(context.profile, everybody);
    NoteAskedGroups();
}

// One line that has a group made is enough for all that name it.
void RowPlanner::NoteAskedGroups()
{
    const auto cell = [](const ImportLine &line, ImportColumn column) {
        return line.cells[static_cast<size_t>(column)].trimmed();
    };
    for (const ImportLine &line : table.lines) {
        const QString name = cell(line, ImportColumn::Group);
        const bool isAsked = FlagIn(cell(line, ImportColumn::CreateGroup)).value_or(false);
        if (isAsked && !name.isEmpty() && !askedGroups.contains(NameKey(name))) {
            askedGroups.insert(NameKey(name), name);
        }
    }
}

ImportRow RowPlanner::Plan(const ImportLine &line) const
{
    return RowReading(*this, line).Read();
}
