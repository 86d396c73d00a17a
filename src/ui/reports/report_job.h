// Work that takes long, off the window's thread: a report, an export, a print, a search.
#pragma once

#include "reports/report_run.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class QThread;

// One at a time. The work owns what it works with; what it has made is taken up by `then` on the
// window's thread.
class ReportJob : public QObject
{
    Q_OBJECT

public:
    explicit ReportJob(QObject *parent = nullptr);
    ~ReportJob() override; // ends what runs and waits for it

    // Nothing happens while another job runs.
    void Start(std::function<void(RunControl &)> work, std::function<void()> then);
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return thread != nullptr; }

signals:
    void Started();
    void Progressed(qint64 done,
                    qint64 whole); // ten times a second; whole is 0 while nobody knows it
    void Ended();

private:
    void Finish(const std::function<void()> &then);

    std::unique_ptr<QThread> thread;
    std::shared_ptr<RunControl> control;
    QTimer pulse;
};
