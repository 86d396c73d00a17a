// When the lists are read anew by themselves.
#pragma once

#include "config/config_store.h"

#include <QObject>
#include <QTimer>

class AutoRefresh : public QObject
{
    Q_OBJECT

public:
    enum Mode { None, EachMinute, Each3Minutes, Each5Minutes, Each10Minutes, Custom };

    explicit AutoRefresh(QObject *parent);

    // The choice of the last run. Missing values read as 0: no refresh.
    void Load(const ConfigStore &config);
    [[nodiscard]] SettingsResult Save(const ConfigStore &config) const;

    // Runs the timer by the choice that was loaded, unless another was made since.
    void Start();

    // Chooses one of the fixed periods, or none.
    void Choose(Mode newMode);
    void ChooseCustom(int minutes);

    [[nodiscard]] int CurrentMode() const { return mode; } // any number may have been stored
    [[nodiscard]] int Period() const { return period; }

signals:
    void Due();

private:
    void Run(qint64 milliseconds);

    int mode = None;
    int period = 0; // of the custom mode, in minutes
    QTimer timer {this};
};
