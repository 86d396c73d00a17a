#include "ui/main/message_pane.h"

#include "ui/main/frame_status_bar.h"

namespace {

constexpr int kReadingDelay = 1000; // milliseconds
constexpr int kNewsTime = 20000;

} // namespace

MessagePane::MessagePane(FrameStatusBar &statusBar, QObject *parent)
    : QObject(parent)
    , bar(statusBar)
{
    readingDelay.setSingleShot(true);
    readingDelay.setInterval(kReadingDelay);
    connect(&readingDelay, &QTimer::timeout, this, [this] {
        readsLong = true;
        Show();
    });
    newsTime.setSingleShot(true);
    newsTime.setInterval(kNewsTime);
    connect(&newsTime, &QTimer::timeout, this, [this] { ShowNews({}); });
}

void MessagePane::ShowDatabase(bool nowConnected)
{
    connected = nowConnected;
    Show();
}

void MessagePane::ShowReading(bool reading)
{
    if (!reading) {
        readingDelay.stop();
        readsLong = false;
        Show();
    } else if (!readingDelay.isActive() && !readsLong) {
        readingDelay.start();
    }
}

void MessagePane::ShowTold(bool isTelling)
{
    if (isTelling) {
        ShowNews(tr("The service is being told of the change..."));
        awaitsService = true;
    } else {
        ShowHeard();
    }
}

void MessagePane::ShowSettled(bool newAllHeard)
{
    allHeard = newAllHeard;
    if (awaitsService || !allHeard) {
        ShowHeard();
    }
}

void MessagePane::ShowHeard()
{
    ShowNews(allHeard ? tr("The change is in force.")
                      : tr("The service was not told and will find the change in the database."));
}

void MessagePane::ShowStored(bool serviceRuns, int period)
{
    if (serviceRuns) {
        ShowNews(tr("The change will be in force when the service reads the database next, within "
                    "%1 seconds.")
                     .arg(period));
    } else {
        ShowNews(tr("The change will be in force when the service starts."));
    }
}

void MessagePane::ShowSettingsStored()
{
    ShowNews(tr("The settings will be in force when the service is restarted."));
}

void MessagePane::ShowLists(const QString &text)
{
    lists = text;
    Show();
}

void MessagePane::ShowNews(const QString &text)
{
    news = text;
    awaitsService = false;
    if (news.isEmpty()) {
        newsTime.stop();
    } else {
        newsTime.start();
    }
    Show();
}

void MessagePane::Show()
{
    bar.OfferCancel(readsLong);
    if (readsLong) {
        bar.ShowNotice(tr("Reading the lists..."));
    } else if (!connected) {
        bar.ShowNotice(tr("No connection to the database"));
    } else {
        bar.ShowNotice(news.isEmpty() ? lists : news);
    }
}
