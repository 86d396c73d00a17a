// The login manager's save: login by login, each of which may fail without stopping the others.
#include "actions/action_run.h"
#include "admin/login_rows.h"
#include "admin/login_storage.h"
#include "db/query.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(LoginSave)
};

QString LimitText(const Login &login)
{
    return login.limit == Login::Limit::None ? Words::tr("no limit") : login.LimitAddress();
}

class LoginsSave
{
public:
    LoginsSave(ActionRun &actionRun, const LoginChanges &wanted, LoginSaveReport &saveReport)
        : run(actionRun)
        , changes(wanted)
        , report(saveReport)
    { }

    void Run()
    {
        for (const LoginChange &change : changes.changed) {
            change.isNew ? PrepareNew(change.draft) : PrepareChanged(change);
        }
        if (run.IsStopped()) {
            return;
        }
        Delete(changes.removedFirst);
        for (const Login &login : prepared) {
            Write(login);
        }
        Delete(changes.removedLast);
    }

private:
    [[nodiscard]] bool IsNew(const Login &login) const { return newNames.contains(login.name); }

    // A name that is only used again belongs to a row that goes first.
    void PrepareNew(const Login &login)
    {
        const bool makesRoom = changes.removedFirst.contains(login.name, Qt::CaseInsensitive);
        const auto stored = ReadDigest(login.name);
        if (!stored) {
            Fail(stored.error(), login.name);
        } else if (*stored && !makesRoom) {
            Leave(Words::tr("The login %1 was not saved: somebody else has made it meanwhile."),
                  login.name);
        } else if (MayBind(login, {})) {
            newNames << login.name;
            prepared.push_back(login);
        }
    }

    // To a user that is still there. A login stays bound to whom it is bound already.
    bool MayBind(const Login &login, UserId present)
    {
        if (!login.userId.IsSet() || login.userId == present) {
            return true;
        }
        const auto exists = Exists("SELECT username FROM users WHERE user_id = (?)", login.userId);
        if (!exists) {
            Fail(exists.error(), login.name);
        } else if (!*exists) {
            Leave(Words::tr("The login %1 was not saved: the user to whom it is bound has been "
                            "deleted meanwhile."),
                  login.name);
        }
        return exists.value_or(false);
    }

    void PrepareChanged(const LoginChange &change)
    {
        const QString &name = change.draft.name;
        const auto stored = ReadStoredLogin(name);
        const auto digest = ReadDigest(name);
        if (!stored || !digest) {
            Fail(stored ? digest.error() : stored.error(), name);
            return;
        }
        if (!*stored || !*digest) {
            report.saved.gone << name;
            Leave(
                Words::tr(
                    "The login %1 was not saved: somebody else has removed it meanwhile. It is no "
                    "longer listed."),
                name);
            return;
        }
        const auto present = WithUser(**stored);
        if (!present) {
            Fail(present.error(), name);
            return;
        }
        Login login = Merged(change, *present);
        if (login.digest.isEmpty()) {
            login.digest = **digest;
        }
        if (MayBind(login, present->userId)) {
            prepared.push_back(login);
        }
    }

    // What was not touched stays as it stands now; what somebody else changed as well is asked.
    Login Merged(const LoginChange &change, const Login &present)
    {
        const auto &[base, draft, isNew] = change;
        Login login = draft;
        if (!Takes(draft.name,
                   Words::tr("the limit of the workstation"),
                   !HasSameLimit(draft, base),
                   HasSameLimit(present, base) || HasSameLimit(present, draft),
                   LimitText(present))) {
            login.limit = present.limit;
            login.limitIp = present.limitIp;
            login.limitMac = present.limitMac;
        }
        if (!Takes(draft.name,
                   Words::tr("the access to personal statistics"),
                   draft.allowStats != base.allowStats,
                   true, // of two values it is either the old one or the same
                   {})) {
            login.allowStats = present.allowStats;
        }
        if (!Takes(draft.name,
                   Words::tr("the bound user"),
                   draft.userId != base.userId,
                   present.userId == base.userId || present.userId == draft.userId,
                   present.userId.IsSet() ? present.userName : Words::tr("none"))) {
            login.userId = present.userId;
            login.userName = present.userName;
            login.groupId = present.groupId;
        }
        return login;
    }

    // Whether the table's value counts, not the one that stands there now.
    bool Takes(const QString &login,
               const QString &what,
               bool isTouched,
               bool isUndisputed,
               const QString &present)
    {
        if (!isTouched || isUndisputed) {
            return isTouched;
        }
        return run.Ask({u"login "_s + login + u' ' + what + u' ' + present,
                        Words::tr("Login %1: %2 was changed meanwhile to %3 \u2013 overwrite?")
                            .arg(login, what, present)});
    }

    void Delete(const QStringList &names)
    {
        for (const QString &name : names) {
            const auto isGone = [&name] {
                return ReadDigest(name).map(
                    [](const std::optional<QString> &found) { return !found; });
            };
            if (run.WriteOrLook(isGone, "DELETE FROM logins WHERE login=(?)", name)) {
                report.saved.removed << name;
            } else {
                Leave(Words::tr("The login %1 was not removed."), name);
            }
        }
    }

    void Write(const Login &login)
    {
        const bool needsRoom = changes.removedFirst.contains(login.name, Qt::CaseInsensitive);
        const bool hasRoom = report.saved.removed.contains(login.name, Qt::CaseInsensitive);
        if ((needsRoom && !hasRoom)
            || !(IsNew(login) ? InsertLogin(run, login) : UpdateLogin(run, login))) {
            Leave(Words::tr("The login %1 was not saved."), login.name);
            return;
        }
        Login written = login;
        written.digest.clear();
        report.saved.written.push_back(written);
    }

    void Leave(const QString &sentence, const QString &name)
    {
        report.notSaved << sentence.arg(name);
    }

    void Fail(const Failure &failure, const QString &name)
    {
        (void)run.Take(Result<bool>(tl::unexpected(failure)));
        Leave(Words::tr("The login %1 was not saved."), name);
    }

    ActionRun &run;
    const LoginChanges &changes;
    LoginSaveReport &report;
    std::vector<Login> prepared; // complete, in their order
    QStringList newNames;
};

} // namespace

Action SaveLoginsAction(const LoginChanges &changes, const std::shared_ptr<LoginSaveReport> &report)
{
    return {ActionId::SaveLogins, [changes, report](ActionRun &run) {
                *report = {};
                LoginsSave(run, changes, *report).Run();
            }};
}
