#include "windows/bench_services.h"

#include "support/must.h"

using namespace Qt::StringLiterals;

namespace {

QString WithKeys(const QString &folder)
{
    const ConfigStore settings(folder);
    for (const auto key : {ConfigKeyId::Base,
                           ConfigKeyId::LocalIp,
                           ConfigKeyId::Price,
                           ConfigKeyId::DefProfile,
                           ConfigKeyId::Ui,
                           ConfigKeyId::AdapterBind,
                           ConfigKeyId::CaptureDriver}) {
        if (!settings.CreateKey(key)) {
            Fail(u"The settings cannot be made."_s);
        }
    }
    return folder;
}

} // namespace

BenchServices::BenchServices(const QString &dsn)
    : program({.configFolder = WithKeys(folder.path()), .opensDatabase = false})
    , services {program.settings, database, program.control, program.connection, news, prompt}
{
    if (!dsn.isEmpty()) {
        database.Open(dsn);
    }
}
