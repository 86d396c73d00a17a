#include "support/windows/window_fixture.h"

#include <QSettings>
#include <QtTest>

using namespace Qt::StringLiterals;

void WindowFixture::SetUp()
{
    DatabaseFixture::SetUp();
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.filePath(u"desktop"_s));
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

void WindowFixture::TearDown()
{
    database.reset();
    DatabaseFixture::TearDown();
}

void WindowFixture::LetSessionFinish() const
{
    EXPECT_TRUE(QTest::qWaitFor([this] { return !database->IsBusy(); }, 10000));
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
    program.emplace(options);
    program->connection.OnSettled([this](bool allHeard) { emit news.ServiceSettled(allHeard); });
    database = std::make_unique<SessionThread>();
    database->Open(Dsn());
    services.emplace(AppServices {
        program->settings, *database, program->control, program->connection, news, prompt});
}

QString WindowFixture::ConfigFolder() const
{
    return folder.filePath(u"config"_s);
}
