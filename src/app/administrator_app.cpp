#include "app/administrator_app.h"

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
    program.emplace(
        StartProgram(options, [this](StartUpProblem problem) { TellProblem(problem); }));
    services.emplace(ServicesOf(*program, *prompt));
    serviceRunning = program->control.IsRunning();
    // Kept: Connect never reports a failure, so a running service counts as connected.
    connected = serviceRunning && program->connection.Connect(*prompt) == 0;
}

void CAdministratorApp::TellProblem(StartUpProblem problem)
{
    switch (problem) {
    case StartUpProblem::NoDataSource:
        prompt->Tell(u"Registry error detected. Please reinstall the software"_s);
        break;
    case StartUpProblem::DatabaseNotOpen:
        prompt->Tell(u"Failed connecting to the database. Please check the database options"_s);
        break;
    }
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
