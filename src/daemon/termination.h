// The signals that a service is sent, as events of its own thread.
#pragma once

#include <QObject>
#include <QSocketNotifier>

class Termination : public QObject
{
    Q_OBJECT

public:
    // Takes SIGTERM, SIGINT and SIGHUP from here on; to be made before any further thread.
    explicit Termination(QObject *parent = nullptr);
    ~Termination() override;
    Termination(const Termination &) = delete;
    Termination &operator=(const Termination &) = delete;

signals:
    void StopAsked();
    void ReloadAsked();

private:
    void Read();

    int descriptor;
    QSocketNotifier notifier;
};
