#include "app/administrator_app.h"

#include "db/session.h"

#include <QFontDatabase>
#include <QThreadPool>

#include <clocale>
#include <utility>

using namespace Qt::StringLiterals;

CAdministratorApp *theApp = nullptr;

namespace {

constexpr int kDefaultPort = 700;

}

CAdministratorApp::CAdministratorApp(int &argc, char **argv) : QApplication(argc, argv)
{
    // No display name: the desktop would add it to every window's exact caption.
    setApplicationName(u"tollbrook-admin"_s);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    theApp = this;
}

CAdministratorApp::~CAdministratorApp()
{
    Shutdown();
    theApp = nullptr;
}

void CAdministratorApp::SetUp(const Surroundings &surroundings,
                              Prompt &newPrompt,
                              FrameTemplate newTemplate)
{
    config = std::make_unique<ConfigStore>(surroundings.configFolder);
    control = std::make_unique<ServiceControl>(surroundings.bus);
    link.reset();
    bus.emplace(surroundings.bus);
    prompt = &newPrompt;
    frameTemplate = std::move(newTemplate);
    serviceRunning = false;
    connected = false;
}

bool CAdministratorApp::InitInstance()
{
    // The toolkit's first look for fonts takes as long as opening the database: both at a time.
    QThreadPool::globalInstance()->start([] { QFontDatabase::families(); });
    Configure();
    return frameTemplate();
}

void CAdministratorApp::Configure()
{
    const QByteArray dsn = ReadStartUpSettings().toUtf8();
    if (dsn.isEmpty()) {
        prompt->Tell(u"Registry error detected. Please reinstall the software"_s);
    }
    if (ConnectDatabase(dsn.constData()) == 0) {
        prompt->Tell(u"Failed connecting to the database. Please check the database options"_s);
    }
    serviceRunning = control->IsRunning();
    // Kept: ConnectService never reports a failure, so a running service counts as connected.
    connected = serviceRunning && ConnectService() == 0;
}

QString CAdministratorApp::ReadStartUpSettings()
{
    port = kDefaultPort;
    if (!config->HasKey(ConfigKeyId::Base)) {
        return {};
    }
    port = config->ReadInteger(values::kPort);
    return config->ReadText(values::kBillDsn).value_or(QString());
}

int CAdministratorApp::ConnectService()
{
    link = ServiceLink::Create(*bus);
    if (!link) {
        prompt->Tell(u"Could not create instance"_s);
    }
    return 0;
}

void CAdministratorApp::Shutdown()
{
    DisconnectDatabase();
    link.reset();
}
