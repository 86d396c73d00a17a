#include "startup/start_up.h"

#include "config/config_folder.h"
#include "db/query.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "db/session_limits.h"

using namespace Qt::StringLiterals;

namespace {

void ReadStartUpSettings(const std::optional<QString> &givenDataSource, StartedProgram &program)
{
    program.dataSource = givenDataSource.value_or(QString());
    if (!program.settings.HasKey(ConfigKeyId::Base)) {
        return;
    }
    program.port = program.settings.ReadInteger(values::kPort);
    if (!givenDataSource) {
        program.dataSource = program.settings.ReadText(values::kBillDsn).value_or(QString());
    }
}

// A number that is 0, or none, leaves the usual limit.
void SetSessionLimits(const ConfigStore &settings)
{
    SessionLimits limits;
    const auto take = [&settings](const TextValue &value, SessionLimits::Milliseconds &limit) {
        if (const qint32 seconds = settings.ReadInteger(value); seconds > 0) {
            limit = std::chrono::seconds(seconds);
        }
    };
    take(values::kDbConnectTimeout, limits.connect);
    take(values::kDbAnswerTimeout, limits.answer);
    take(values::kDbLockTimeout, limits.lock);
    SetLimits(limits);
}

void OpenDatabase(StartedProgram &program, const std::function<void(StartUpProblem)> &tell)
{
    const auto report = [&tell](StartUpProblem problem) {
        if (tell) {
            tell(problem);
        }
    };
    if (program.dataSource.isEmpty()) {
        report(StartUpProblem::NoDataSource);
    }
    program.databaseOpen = ConnectDatabase(program.dataSource.toUtf8().constData()) != 0;
    if (!program.databaseOpen) {
        report(StartUpProblem::DatabaseNotOpen);
    }
}

} // namespace

StartedProgram::StartedProgram(const StartUpOptions &options,
                               const std::function<void(StartUpProblem)> &tell)
    : settings(ConfigFolder(options.configFolder))
    , control(options.bus)
    , connection(options.bus)
{
    ReadStartUpSettings(options.dataSource, *this);
    SetSessionLimits(settings);
    if (options.opensDatabase) {
        OpenDatabase(*this, tell);
    }
}

std::optional<QString> SchemaProblem(const QString &dataSource)
{
    const auto version = OpenedSchemaVersion();
    if (!version) {
        return version.error().InWords();
    }
    return OtherSchemaText(*version, dataSource);
}

std::optional<QDBusConnection> BusNamed(const QString &name)
{
    if (name == u"system"_s) {
        return QDBusConnection::systemBus();
    }
    if (name == u"session"_s) {
        return QDBusConnection::sessionBus();
    }
    return std::nullopt;
}
