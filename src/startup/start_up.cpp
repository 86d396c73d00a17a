#include "startup/start_up.h"

#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

QString FolderOf(const StartUpOptions &options)
{
    return !options.configFolder.isEmpty()
        ? options.configFolder
        : qEnvironmentVariable("TOLLBROOK_CONFIG", u"/etc/tollbrook"_s);
}

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

StartedProgram StartProgram(const StartUpOptions &options,
                            const std::function<void(StartUpProblem)> &tell)
{
    StartedProgram program {ConfigStore(FolderOf(options)),
                            ServiceControl(options.bus),
                            ServiceConnection(options.bus)};
    ReadStartUpSettings(options.dataSource, program);
    if (options.opensDatabase) {
        OpenDatabase(program, tell);
    }
    return program;
}

AppServices ServicesOf(StartedProgram &program, Prompt &prompt)
{
    return {program.settings, program.control, program.connection, prompt};
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
