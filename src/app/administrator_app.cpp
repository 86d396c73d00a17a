#include "app/administrator_app.h"

#include "app/waiting.h"
#include "db/query.h"
#include "db/schema_version.h"
#include "startup/rights.h"

#include <QFontDatabase>
#include <QThreadPool>

#include <clocale>
#include <utility>

using namespace Qt::StringLiterals;

CAdministratorApp::CAdministratorApp(int &argc, char **argv) : QApplication(argc, argv)
{
    // No display name: the desktop would add it to every window's exact caption.
    setApplicationName(u"tollbrook-admin"_s);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    connect(
        &database, &SessionThread::ConnectionChanged, this, &CAdministratorApp::LookAtSchemaAgain);
}

CAdministratorApp::~CAdministratorApp()
{
    Close();
}

void CAdministratorApp::SetUp(const StartUpOptions &newOptions,
                              Prompt &newPrompt,
                              FrameTemplate newTemplate)
{
    Close();
    options = newOptions;
    prompt = &newPrompt;
    frameTemplate = std::move(newTemplate);
    services.reset();
    program.reset();
    serviceRunning = false;
    connected = false;
    olderSchemaTold = false;
}

bool CAdministratorApp::InitInstance()
{
    // The toolkit's first look for fonts takes as long as opening the database: both at a time.
    QThreadPool::globalInstance()->start([] { QFontDatabase::families(); });
    MakeServices();
    database.Open(program->dataSource);
    if (!frameTemplate.show()) {
        return false;
    }
    OpenDatabase();
    ReachService();
    frameTemplate.begin();
    return true;
}

void CAdministratorApp::MakeServices()
{
    StartUpOptions withoutDatabase = options;
    withoutDatabase.opensDatabase = false;
    program.emplace(withoutDatabase);
    program->connection.OnSettled([this](bool allHeard) { emit news.ServiceSettled(allHeard); });
    services.emplace(AppServices {
        program->settings, database, program->control, program->connection, news, *prompt});
    services->onlyLooks = MayOnlyLook();
}

// The session opens beside the window; here is waited for it.
void CAdministratorApp::OpenDatabase()
{
    if (program->dataSource.isEmpty()) {
        prompt->Tell(tr("Registry error detected. Please reinstall the software"));
        if (const auto problem = program->settings.Problem(ConfigKeyId::Base)) {
            prompt->Tell(TextOf(*problem), Prompt::Icon::Warning);
        }
    }
    const auto version = Await(*services, activeWindow(), tr("Opening the database..."), [] {
        return OpenedSchemaVersion();
    });
    if (!version && version.error().kind == Failure::Kind::NewerSchema) {
        prompt->Tell(version.error().text, Prompt::Icon::Warning);
    } else if (!version) {
        prompt->Tell(tr("Failed connecting to the database. Please check the database options"));
    } else {
        TellOfOlderSchema(*version);
    }
}

void CAdministratorApp::TellOfOlderSchema(int version)
{
    const bool isNews = AgeOf(version) == SchemaAge::Older && !std::exchange(olderSchemaTold, true);
    if (isNews && !IsUpgraded(version)) {
        prompt->Tell(OlderSchemaText(version, program->dataSource), Prompt::Icon::Warning);
    }
}

// Whoever changes nothing is only told.
bool CAdministratorApp::IsUpgraded(int olderVersion) const
{
    return !services->onlyLooks && frameTemplate.offerUpgrade
        && frameTemplate.offerUpgrade(olderVersion);
}

// A database that could not be opened at the start is opened later on.
void CAdministratorApp::LookAtSchemaAgain(bool isOpen)
{
    if (isOpen && services && !olderSchemaTold) {
        database.Start(this, OpenedSchemaVersion, [this](const Result<int> &version) {
            if (version) {
                TellOfOlderSchema(*version);
            }
        });
    }
}

void CAdministratorApp::ReachService()
{
    serviceRunning = program->control.IsRunning();
    // Kept: Connect never reports a failure, so a running service counts as connected.
    connected = serviceRunning && program->connection.Connect(*prompt) == 0;
}

int CAdministratorApp::Port() const
{
    return program ? program->port : StartedProgram::kDefaultPort;
}

void CAdministratorApp::Close()
{
    if (services) {
        CloseConnections(*services);
    }
}
