// The application object: start-up, and the state that the windows share.
#pragma once

#include "base/prompt.h"
#include "config/config_store.h"
#include "service/service_control.h"
#include "service/service_link.h"

#include <QApplication>

#include <functional>
#include <memory>

// Where the console finds its settings and the services it talks to.
struct Surroundings
{
    QString configFolder;
    QDBusConnection bus; // carries both the service manager and the accounting service
};

// Puts the document's frame on the screen: creates it, shows it and hands it its first-start work.
// False when it cannot be created.
using FrameTemplate = std::function<bool()>;

class CAdministratorApp : public QApplication
{
    Q_OBJECT

public:
    CAdministratorApp(int &argc, char **argv);
    ~CAdministratorApp() override;

    // Must be called before anything else; a test may call it again for another run.
    void SetUp(const Surroundings &surroundings, Prompt &prompt, FrameTemplate frameTemplate);

    // Reads the start-up settings, opens the database, looks for the service and puts the frame on
    // the screen. True when the main window is up; no other failure stops the program.
    bool InitInstance();

    // Connects to the service; on failure says "Could not create instance". Always 0, which callers
    // take as success: kept, the status bar then starts as connected.
    int ConnectService();

    // What a frame does as it goes: the database session is closed, the connection dropped.
    void Shutdown();

    [[nodiscard]] ConfigStore &Config() { return *config; }
    [[nodiscard]] Prompt &Messages() { return *prompt; }
    [[nodiscard]] const ServiceControl &Control() const { return *control; }
    // Null while not connected.
    [[nodiscard]] const ServiceLink *Link() const { return link.get(); }

    [[nodiscard]] bool IsServiceRunning() const { return serviceRunning; } // at start-up
    [[nodiscard]] bool IsConnected() const { return connected; } // at start-up
    [[nodiscard]] int Port() const { return port; }

private:
    void Configure();
    QString ReadStartUpSettings();

    std::unique_ptr<ConfigStore> config;
    std::unique_ptr<ServiceControl> control;
    std::unique_ptr<ServiceLink> link;
    std::optional<QDBusConnection> bus;
    Prompt *prompt = nullptr;
    FrameTemplate frameTemplate;
    bool serviceRunning = false;
    bool connected = false;
    int port = 700;
};

// The one application object of the process.
extern CAdministratorApp *theApp;
