#include "support/windows/window_fixture.h"

using namespace Qt::StringLiterals;

void WindowFixture::SetUp()
{
    DatabaseFixture::SetUp();
    UseConfigFolder(ConfigFolder());
    for (const auto key : {ConfigKeyId::Base,
                           ConfigKeyId::LocalIp,
                           ConfigKeyId::Price,
                           ConfigKeyId::DefProfile,
                           ConfigKeyId::Ui,
                           ConfigKeyId::AdapterBind,
                           ConfigKeyId::CaptureDriver}) {
        ASSERT_TRUE(Settings().CreateKey(key));
    }
}

void WindowFixture::UseBus(const QDBusConnection &bus)
{
    Start({.configFolder = ConfigFolder(), .opensDatabase = false, .bus = bus});
}

void WindowFixture::UseConfigFolder(const QString &configFolder)
{
    Start({.configFolder = configFolder, .opensDatabase = false});
}

void WindowFixture::Start(const StartUpOptions &options)
{
    program.emplace(StartProgram(options));
    services.emplace(ServicesOf(*program, prompt));
}

QString WindowFixture::ConfigFolder() const
{
    return folder.filePath(u"config"_s);
}
