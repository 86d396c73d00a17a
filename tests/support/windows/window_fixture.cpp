#include "support/windows/window_fixture.h"

using namespace Qt::StringLiterals;

void WindowFixture::SetUp()
{
    DatabaseFixture::SetUp();
    UseBus(QDBusConnection(u"nobody"_s));
    for (const auto key : {ConfigKeyId::Base,
                           ConfigKeyId::LocalIp,
                           ConfigKeyId::Price,
                           ConfigKeyId::DefProfile,
                           ConfigKeyId::Ui,
                           ConfigKeyId::AdapterBind,
                           ConfigKeyId::CaptureDriver}) {
        ASSERT_TRUE(theApp->Config().CreateKey(key));
    }
}

void WindowFixture::UseBus(const QDBusConnection &bus)
{
    theApp->SetUp({folder.filePath(u"config"_s), bus}, prompt, [] { return true; });
}
