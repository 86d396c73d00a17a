#include "windows/bench_services.h"

#include "support/must.h"

using namespace Qt::StringLiterals;

BenchServices::BenchServices(const QString &dsn)
    : program({.configFolder = folder.path(), .opensDatabase = false})
    , services {program.settings, database, program.control, program.connection, news, prompt}
{
    for (const auto key : {ConfigKeyId::Base,
                           ConfigKeyId::LocalIp,
                           ConfigKeyId::Price,
                           ConfigKeyId::DefProfile,
                           ConfigKeyId::Ui,
                           ConfigKeyId::AdapterBind,
                           ConfigKeyId::CaptureDriver}) {
        if (!program.settings.CreateKey(key)) {
            Fail(u"The settings cannot be made."_s);
        }
    }
    if (!dsn.isEmpty()) {
        database.Open(dsn);
    }
}
