// What the main window says in its status bar: what is wrong comes before what was done, and that
// before what the lists say of themselves.
#pragma once

#include <QObject>
#include <QTimer>

class FrameStatusBar;

class MessagePane : public QObject
{
    Q_OBJECT

public:
    MessagePane(FrameStatusBar &bar, QObject *parent);

    // "No connection to the database", for as long as it lasts.
    void ShowDatabase(bool connected);

    // The lists are being read: shown once that takes longer than a second, with "Cancel".
    void ShowReading(bool reading);

    // Something was stored that the service was sent word of: it is in force when the service has heard
    // it, which ShowSettled tells where that is still open.
    void ShowTold(bool isTelling);
    void ShowSettled(bool allHeard);

    // Something was stored that the service finds in the database: when it reads that next, every
    // `period` seconds, while it runs, else when it starts.
    void ShowStored(bool serviceRuns, int period);

    // Settings were stored: the service takes them up when it starts.
    void ShowSettingsStored();

    // What the lists say of themselves; empty for nothing.
    void ShowLists(const QString &text);

private:
    void ShowHeard();
    void ShowNews(const QString &text);
    void Show();

    FrameStatusBar &bar;
    QTimer readingDelay {this};
    QTimer newsTime {this}; // for how long a person reads what was done
    bool connected = true;
    bool readsLong = false;
    bool awaitsService = false; // the news is that the service is being told
    bool allHeard = true; // what the service was last told
    QString news;
    QString lists;
};
