// The main window's own view of the service: whether it runs, and whether the console counts as
// connected to it. What the status bar shows follows these events and nothing else.
#pragma once

#include "service/service_control.h"
#include "ui/main/frame_dialogs.h"

#include <QObject>

class ServiceWatch : public QObject
{
    Q_OBJECT

public:
    // `dialogs` must outlive it.
    ServiceWatch(const FrameDialogs &dialogs, QObject *parent);

    // As they were found at start-up.
    void Start(bool serviceRunning, bool connected);

    // Asks the service manager.
    void Poll(const ServiceControl &control);

    void OpenControl(QWidget *window);
    void OpenReconnect(QWidget *window);

    [[nodiscard]] bool IsConnected() const { return connected; }
    [[nodiscard]] bool IsRunning() const { return running; } // as last seen

signals:
    void ServiceShown(bool running);
    void ConnectionShown(bool connected);

private:
    void ShowService(bool nowRunning);
    void SetConnected(bool newConnected);

    const FrameDialogs &dialogs;
    bool connected = false;
    bool running = false;
};
