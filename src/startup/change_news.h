// What the main window says in its message pane of changes that other windows stored.
#pragma once

#include <QObject>

class ChangeNews : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    // Something that the accounting service enforces was stored. `serviceTold`: it was sent word of it;
    // else it will find it in the database.
    void Stored(bool serviceTold);

    // Settings were stored, which the service takes up when it starts.
    void SettingsStored();

    // It is known of all that the service was sent word of whether it heard it. What it heard is in
    // force; else it will find it in the database.
    void ServiceSettled(bool allHeard);
};
