#include "cli/settings_work.h"

using namespace Qt::StringLiterals;

Or<KeyReader> ReadKeyToWrite(const Work &work, ConfigKeyId key)
{
    const ConfigStore &settings = work.Settings();
    auto read = settings.ReadKey(key);
    if (!read) {
        return StopWith(ExitStatus::Failed, TextOf(read.error()));
    }
    if (!settings.HasKey(key)) {
        return StopWith(
            ExitStatus::Failed,
            u"There is no file %1; the installation makes it. Nothing was changed."_s.arg(
                settings.FileOf(key)));
    }
    return *std::move(read);
}

void PrintSettings(Work &work,
                   ConfigKeyId key,
                   const QString &name,
                   const QStringList &before,
                   const QStringList &after)
{
    const QString file = work.Settings().FileOf(key);
    work.Print({{{u"settings"_s, name, before, after}}, {}},
               u"%1 was set in %2. The service takes it up when it restarts, or with: systemctl "
               "reload tollbrooksvc"_s.arg(name, file),
               {{u"file"_s, file}});
}
