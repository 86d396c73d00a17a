// The application object of the console: its start-up, and the state that it found.
#pragma once

#include "startup/app_services.h"
#include "startup/start_up.h"

#include <QApplication>

#include <functional>
#include <optional>

// How the document's frame comes to the screen.
struct FrameTemplate
{
    std::function<bool()> show; // false when it cannot be created
    std::function<void()> begin; // its first-start work, once all is there that can be reached
    // Offers to upgrade the tables, which have this older version; true when they are up to date by then.
    std::function<bool(int version)> offerUpgrade = {};
};

class CAdministratorApp : public QApplication
{
    Q_OBJECT

public:
    CAdministratorApp(int &argc, char **argv);
    ~CAdministratorApp() override; // the database session is closed, the connection dropped

    // Must be called before InitInstance; a test may call it again for another run. `prompt` must
    // outlive the application's windows.
    void SetUp(const StartUpOptions &options, Prompt &prompt, FrameTemplate frameTemplate);

    // Reads the start-up settings, puts the frame on the screen, opens the database and looks for the
    // service. True when the main window is up; no other failure stops the program: its message stands
    // over the window.
    bool InitInstance();

    // What the windows are handed; there from the moment at which the frame is made.
    [[nodiscard]] const AppServices &Services() const { return *services; }

    [[nodiscard]] bool IsServiceRunning() const { return serviceRunning; } // at start-up
    [[nodiscard]] bool IsConnected() const { return connected; } // at start-up
    [[nodiscard]] int Port() const;

private:
    void MakeServices();
    void OpenDatabase();
    void TellOfOlderSchema(int version);
    [[nodiscard]] bool IsUpgraded(int olderVersion) const;
    void LookAtSchemaAgain(bool isOpen);
    void ReachService();
    void Close();

    StartUpOptions options;
    Prompt *prompt = nullptr;
    FrameTemplate frameTemplate;
    std::optional<StartedProgram> program;
    SessionThread database;
    ChangeNews news;
    std::optional<AppServices> services; // of what stands above
    bool serviceRunning = false;
    bool connected = false;
    bool olderSchemaTold = false; // once is enough
};
