// "status": whether the service counts, and whether the database and the settings can be used.
#include "cli/command.h"
#include "cli/work.h"
#include "db/query.h"
#include "db/schema_version.h"
#include "service/service_report.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"service", "Service"},
                              {"connection", "Connection"},
                              {"lastCount", "Last count"},
                              {"dataSource", "Data source"},
                              {"database", "Database"},
                              {"settings", "Settings"},
                              {"problems", "Problems"}};

// Everything that is not as it should be is a problem, a sentence each.
struct Findings
{
    QString service;
    QString connection = u"none"_s;
    QString lastCount;
    QString database = u"open"_s;
    QStringList problems;
    bool databaseFailed = false;
};

QString WordOf(std::optional<ServiceControl::State> state)
{
    if (!state) {
        return u"unknown"_s;
    }
    switch (*state) {
    case ServiceControl::State::Stopped:
        return u"stopped"_s;
    case ServiceControl::State::StartPending:
        return u"starting"_s;
    case ServiceControl::State::StopPending:
        return u"stopping"_s;
    case ServiceControl::State::Running:
        return u"running"_s;
    }
    Q_UNREACHABLE();
}

void LookAtService(const Work &work, Findings &found)
{
    const auto state = work.Program().control.Query();
    found.service = WordOf(state);
    if (!state) {
        found.problems
            << u"The service manager does not answer, or knows no tollbrooksvc.service."_s;
    } else if (*state != ServiceControl::State::Running) {
        found.problems << u"The accounting service does not run: nobody is counted. Start it with: "
                          "systemctl start tollbrooksvc"_s;
    }
    const auto report = AskService(work.Bus());
    if (report) {
        found.connection = u"answers"_s;
        found.lastCount = report->lastCount;
        found.problems += report->problems;
        if (report->lastCount.isEmpty()) {
            found.problems << u"The accounting service has not written a count yet."_s;
        }
    } else if (state == ServiceControl::State::Running) {
        found.problems << u"The accounting service runs and does not answer on the message bus."_s;
    }
}

void LookAtSettings(const Work &work, Findings &found)
{
    for (const ConfigKeyId key :
         {ConfigKeyId::Base, ConfigKeyId::LocalIp, ConfigKeyId::Price, ConfigKeyId::DefProfile}) {
        if (const auto problem = work.Settings().Problem(key)) {
            found.problems << TextOf(*problem);
        } else if (!work.Settings().HasKey(key)) {
            found.problems << u"There is no file %1; the installation makes it."_s.arg(
                work.Settings().FileOf(key));
        }
    }
    if (const QStringList open = work.Settings().OpenToEverybody(); !open.isEmpty()) {
        found.problems
            << u"The settings, of which one is a password, are open to everybody on this "
               "machine: %1"_s.arg(open.join(u", "_s));
    }
}

// A statement, besides: a session that is open may have lost its tables.
void LookAtDatabase(Work &work, Findings &found)
{
    const auto opened = work.OpenDatabase();
    const auto users = work.Read([] { return Exists("SELECT user_id FROM users"); });
    if (!opened || !users) {
        found.database = opened ? u"fails"_s : u"cannot be opened"_s;
        found.databaseFailed = true;
        found.problems << (opened ? users.error().text : opened.error().text);
        return;
    }
    const auto version = work.Read(OpenedSchemaVersion);
    if (const auto other = version ? OtherSchemaText(*version, work.Program().dataSource)
                                   : std::optional(version.error().text)) {
        found.problems << *other;
    }
}

Or<void> ShowStatus(Work &work, const Given & /*given*/)
{
    Findings found;
    LookAtService(work, found);
    LookAtSettings(work, found);
    LookAtDatabase(work, found);
    work.Print(kColumns,
               {found.service,
                found.connection,
                found.lastCount.isEmpty() ? Cell() : Cell(found.lastCount),
                work.Program().dataSource,
                found.database,
                work.Settings().Folder(),
                {QJsonArray::fromStringList(found.problems), QString()}});
    if (!work.IsJson()) {
        for (const QString &problem : found.problems) {
            work.PrintLine(u"! "_s + QString(problem).replace(u'\n', u' '));
        }
    }
    if (found.problems.isEmpty()) {
        return {};
    }
    return StopWith(found.databaseFailed ? ExitStatus::Failed : ExitStatus::Refused, {});
}

} // namespace

Commands StatusCommands()
{
    return {
        {"status",
         "",
         "Tells whether the service counts and the database can be used; exit status 0 only if so.",
         0,
         0,
         {},
         ShowStatus}};
}
