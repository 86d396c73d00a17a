// What the main window says in its message pane of changes that other windows stored.
#pragma once

#include <QObject>

class ChangeNews : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    // Something that the accounting service enforces was stored. `serviceTold`: it heard of it, so that
    // it is in force; else it will find it in the database.
    void Stored(bool serviceTold);

    // Settings were stored, which the service takes up when it starts.
    void SettingsStored();

    // The service did not hear of a block or unblock that it was told of: it will find it in the
    // database.
    void NotHeard();
};
