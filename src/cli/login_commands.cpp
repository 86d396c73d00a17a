// The commands that begin with "login": what users prove themselves with.
#include "access/user_list.h"
#include "admin/login_storage.h"
#include "base/ipv4.h"
#include "base/mac_address.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/work.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"name", "Login"},
                              {"user", "User"},
                              {"userId", "User number", true},
                              {"workstation", "Workstation"},
                              {"statistics", "Statistics"},
                              {"guest", "Guest"}};

QString LimitText(const Login &login)
{
    return login.limit == Login::Limit::MacAddress ? MacAddressText(login.limitMac)
                                                   : login.LimitAddress();
}

Or<void> ListLogins(Work &work, const Given & /*given*/)
{
    const auto logins = work.Read(LoadLogins);
    if (!logins) {
        return tl::unexpected(logins.error());
    }
    Table table {kColumns, {}};
    for (const Login &login : logins->Logins()) {
        table.rows << Cells {login.name,
                             login.userName,
                             login.userId.IsSet() ? Cell(login.userId.value) : Cell(),
                             LimitText(login),
                             login.allowStats,
                             login.guest};
    }
    work.Print(table);
    return {};
}

// What the rows become, without the passwords.
QStringList ValuesOf(const Login &login)
{
    return {u"login="_s + login.name,
            u"userid=%1"_s.arg(login.userId.value),
            u"workstation=%1"_s.arg(login.LimitAddress()),
            u"allowstats=%1"_s.arg(int {login.allowStats}),
            u"guest=%1"_s.arg(int {login.guest})};
}

Change ChangeOf(const LoginChange &change)
{
    const auto &[base, draft, isNew] = change;
    Change row = ChangeBetween(
        u"logins"_s, draft.name, isNew ? QStringList() : ValuesOf(base), ValuesOf(draft));
    if (isNew) {
        return row;
    }
    if (base.digest != draft.digest) {
        row.before << u"pwd=***"_s;
        row.after << u"pwd=***"_s;
    }
    return row;
}

QList<Change> ChangesOf(const LoginChanges &changes)
{
    QList<Change> rows;
    for (const LoginChange &change : changes.changed) {
        rows << ChangeOf(change);
    }
    for (const QString &name : changes.removedLast) {
        rows << Change {u"logins"_s, name, {u"login="_s + name}, {}};
    }
    return rows;
}

Stop StopOf(const LoginSaveReport &report)
{
    const bool isRefused = report.outcome.failures.isEmpty();
    const bool isUncertain = report.outcome.state == Outcome::State::Unknown
        || report.outcome.state == Outcome::State::Partly;
    return {isRefused ? ExitStatus::Refused
                      : (isUncertain ? ExitStatus::Uncertain : ExitStatus::Failed),
            report.InWords()};
}

Or<void> Save(Work &work, const LoginTable &table, const QString &sentence)
{
    const LoginChanges changes = table.Changes();
    const bool isTrial = work.IsTrial();
    const auto report = work.AwaitAnswered(
        [&](const Answers &answers) {
            return [changes, answers, isTrial] {
                return isTrial ? TryLogins(changes, answers) : SaveLogins(changes, answers);
            };
        },
        [](const LoginSaveReport &given) {
            return given.outcome.state == Outcome::State::NeedsAnswers ? given.outcome.questions
                                                                       : QList<Question>();
        });
    if (!report) {
        return tl::unexpected(report.error());
    }
    if (!report->IsDone()) {
        return tl::unexpected(StopOf(*report));
    }
    work.Print(Performed {ChangesOf(changes), {}}, sentence);
    return {};
}

struct OpenTable
{
    LoginTable table;
    size_t index = 0; // of the login that is named
};

Or<OpenTable> OpenAt(Work &work, const QString &name)
{
    auto table = work.Read(LoadLogins);
    if (!table) {
        return tl::unexpected(table.error());
    }
    const auto &logins = table->Logins();
    const auto found = std::ranges::find_if(logins, [&name](const Login &login) {
        return login.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == logins.end()) {
        return StopWith(ExitStatus::Refused, u"There is no login \"%1\"."_s.arg(name));
    }
    const auto index = static_cast<size_t>(found - logins.begin());
    return OpenTable {*std::move(table), index};
}

// Binds the login to the user that is named, who must not have another one.
Or<void> TakeUser(Work &work,
                  const Given &given,
                  const LoginTable &table,
                  std::optional<size_t> index,
                  LoginEntry &entry)
{
    entry.bindToUser = entry.login.userId.IsSet() && !given.Has(u"no-user"_s);
    const auto name = given.Value(u"user"_s);
    if (!name) {
        return {};
    }
    const auto user = FindUser(work, *name);
    const auto logins = user ? work.Read([userId = user->userId] { return LoginsOf(userId); })
                             : tl::unexpected(user.error());
    if (!logins) {
        return tl::unexpected(logins.error());
    }
    if (table.HasLogin(user->userId, index, *logins)) {
        return StopWith(ExitStatus::Refused, UserHasLoginText());
    }
    entry.login.userId = user->userId;
    entry.login.userName = user->name;
    entry.bindToUser = true;
    return {};
}

Or<void> TakeLimit(const Given &given, Login &login)
{
    if (const auto ip = given.Value(u"ip"_s)) {
        login.limit = Login::Limit::IpAddress;
        const auto address = Ipv4From(*ip);
        login.limitIp =
            address ? DottedText(*address) : QString(); // the table refuses an empty one
    }
    if (const auto mac = given.Value(u"mac"_s)) {
        login.limit = Login::Limit::MacAddress;
        login.limitMac = MacFrom(*mac).value_or(QString());
    }
    if (given.Has(u"any-workstation"_s)) {
        login.limit = Login::Limit::None;
    }
    const auto statistics = given.Value(u"statistics"_s);
    const auto allowed = statistics ? FlagFrom(*statistics) : Or<bool>(login.allowStats);
    return allowed.map([&login](bool allow) { login.allowStats = allow; });
}

// From the terminal, twice and unseen, or the first line of the input.
Or<void> TakePassword(Work &work, LoginEntry &entry)
{
    const auto password = work.Speech().ReadSecret(u"Password:"_s);
    if (!password) {
        return WrongUse(u"The password is read from the standard input, which has ended."_s);
    }
    if (password->isEmpty() && !work.Speech().IsTyped()) {
        return WrongUse(
            u"The first line of the standard input, which is the password, is empty."_s);
    }
    entry.password = *password;
    entry.retyped = work.Speech().ReadSecretAgain(u"The same again:"_s).value_or(*password);
    entry.passwordTouched = true;
    return {};
}

Or<void> Put(Work &work,
             LoginTable &table,
             LoginEntry &entry,
             std::optional<size_t> index,
             const QString &sentence)
{
    if (const auto problem = table.Check(entry, index)) {
        return StopWith(ExitStatus::Refused, *problem);
    }
    table.Put(entry, index);
    if (table.Changes().IsEmpty()) {
        return IsSoAlready(u"Login %1"_s.arg(entry.login.name));
    }
    return Save(work, table, sentence.arg(entry.login.name));
}

// Options of which the later one would silently take the place of the other.
Or<void> CheckOptions(const Given &given)
{
    constexpr std::array kRivals {std::pair {"user", "no-user"},
                                  std::pair {"ip", "mac"},
                                  std::pair {"ip", "any-workstation"},
                                  std::pair {"mac", "any-workstation"}};
    for (const auto &[one, other] : kRivals) {
        if (given.Has(QString::fromLatin1(one)) && given.Has(QString::fromLatin1(other))) {
            return WrongUse(u"Name either --%1 or --%2."_s.arg(QLatin1StringView(one),
                                                               QLatin1StringView(other)));
        }
    }
    return {};
}

Or<void> AddLogin(Work &work, const Given &given)
{
    const auto name = CheckOptions(given).and_then(
        [&] { return StorableText(given.Word(0), u"The login's name"_s); });
    auto table = name ? work.Read(LoadLogins) : tl::unexpected(name.error());
    if (!table) {
        return tl::unexpected(table.error());
    }
    LoginEntry entry;
    entry.login.name = *name;
    entry.login.guest = given.Has(u"guest"_s);
    return TakeUser(work, given, *table, {}, entry)
        .and_then([&] { return TakeLimit(given, entry.login); })
        .and_then([&] { return TakePassword(work, entry); })
        .and_then([&] { return Put(work, *table, entry, {}, u"Login %1 was added."_s); });
}

Or<void> SetLogin(Work &work, const Given &given)
{
    const auto checked = CheckOptions(given);
    auto open = checked ? OpenAt(work, given.Word(0)) : tl::unexpected(checked.error());
    if (!open) {
        return tl::unexpected(open.error());
    }
    auto &table = open->table;
    const auto index = open->index;
    LoginEntry entry;
    entry.login = table.Logins()[index];
    return TakeUser(work, given, table, index, entry)
        .and_then([&] { return TakeLimit(given, entry.login); })
        .and_then([&] { return given.Has(u"password"_s) ? TakePassword(work, entry) : Or<void>(); })
        .and_then([&] { return Put(work, table, entry, index, u"Login %1 was changed."_s); });
}

Or<void> RemoveLogin(Work &work, const Given &given)
{
    auto open = OpenAt(work, given.Word(0));
    if (!open) {
        return tl::unexpected(open.error());
    }
    const QString name = open->table.Logins()[open->index].name;
    return work.Confirm(RemoveLoginQuestion(name)).and_then([&] {
        open->table.Remove(open->index);
        return Save(work, open->table, u"Login %1 was removed."_s.arg(name));
    });
}

} // namespace

Commands LoginCommands()
{
    const QList<CommandOption> fields {
        {"user", "USER", "The user to whom it is bound."},
        {"ip", "ADDRESS", "The one workstation to log in from, by its IP address."},
        {"mac", "ADDRESS", "The same by its MAC address."},
        {"statistics", "yes|no", "Whether the user may see the own statistics."},
    };
    return {{"login list", "", "Lists the logins.", 0, 0, {}, ListLogins},
            {"login add",
             "NAME",
             "Adds a login; its password is typed, or is the first line of the standard input.",
             1,
             1,
             fields + QList<CommandOption> {{"guest", nullptr, "It is a guest's."}},
             AddLogin},
            {"login set",
             "NAME",
             "Changes the user, the workstation, the statistics or the password of a login.",
             1,
             1,
             fields
                 + QList<CommandOption> {{"no-user", nullptr, "Binds it to no user."},
                                         {"any-workstation",
                                          nullptr,
                                          "Takes the limit to one workstation away."},
                                         {"password",
                                          nullptr,
                                          "Asks for a new password, as \"login add\" does."}},
             SetLogin,
             true},
            {"login remove", "NAME", "Removes a login, after a question.", 1, 1, {}, RemoveLogin}};
}
