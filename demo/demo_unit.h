// The life of a service unit as the service manager tells it, with the faults that one may ask for.
#pragma once

#include <QObject>
#include <QTimer>

class DemoUnit : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.systemd1.Unit")
    Q_PROPERTY(QString Id READ Id)
    Q_PROPERTY(QString LoadState READ LoadState)
    Q_PROPERTY(QString ActiveState READ ActiveState)

public:
    // What a start or a stop comes to.
    enum class Behaviour {
        Work,
        Refuse, // the command is not accepted
        Hang, // accepted, and never done
        Die // a start that ends in "failed"
    };
    Q_ENUM(Behaviour)

    explicit DemoUnit(QObject *parent = nullptr);

    [[nodiscard]] QString Id() const;
    [[nodiscard]] QString LoadState() const;
    [[nodiscard]] QString ActiveState() const { return state; }
    [[nodiscard]] bool IsActive() const;

    // False when the command is refused.
    bool Start();
    bool Stop();
    void Die(); // at once, whatever it is doing
    void BeginActive(); // as a service that was started before

    Behaviour onStart = Behaviour::Work;
    Behaviour onStop = Behaviour::Work;
    int delay = 600; // milliseconds that a start and a stop take

signals:
    void StateChanged(const QString &activeState);

private:
    void Become(const QString &newState);
    void BecomeLater(Behaviour behaviour, const QString &goal);

    QString state;
    QString next;
    QTimer timer;
};
