// The application object of the console: its start-up, and the state that it found.
#pragma once

#include "startup/start_up.h"

#include <QApplication>

#include <functional>
#include <optional>

// Puts the document's frame on the screen: creates it, shows it and hands it its first-start work.
// False when it cannot be created.
using FrameTemplate = std::function<bool()>;

class CAdministratorApp : public QApplication
{
    Q_OBJECT

public:
    CAdministratorApp(int &argc, char **argv);
    ~CAdministratorApp() override; // the database session is closed, the connection dropped

    // Must be called before InitInstance; a test may call it again for another run. `prompt` must
    // outlive the application's windows.
    void SetUp(const StartUpOptions &options, Prompt &prompt, FrameTemplate frameTemplate);

    // Reads the start-up settings, opens the database, looks for the service and puts the frame on
    // the screen. True when the main window is up; no other failure stops the program.
    bool InitInstance();

    // What the windows are handed; there from the moment at which the frame is made.
    [[nodiscard]] const AppServices &Services() const { return *services; }

    [[nodiscard]] bool IsServiceRunning() const { return serviceRunning; } // at start-up
    [[nodiscard]] bool IsConnected() const { return connected; } // at start-up
    [[nodiscard]] int Port() const;

private:
    void Configure();
    void TellProblem(StartUpProblem problem);
    void Close();

    StartUpOptions options;
    Prompt *prompt = nullptr;
    FrameTemplate frameTemplate;
    std::optional<StartedProgram> program;
    std::optional<AppServices> services; // of `program`
    bool serviceRunning = false;
    bool connected = false;
};
