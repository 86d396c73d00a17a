#include "ui/reports/report_job.h"

#include <QThread>

namespace {

constexpr int kPulseMilliseconds = 100;

}

ReportJob::ReportJob(QObject *parent) : QObject(parent)
{
    pulse.setInterval(kPulseMilliseconds);
    connect(&pulse, &QTimer::timeout, this, [this] {
        emit Progressed(control->Done(), control->Whole());
    });
}

ReportJob::~ReportJob()
{
    if (thread) {
        control->Cancel();
        thread->disconnect(this);
        thread->wait();
    }
}

void ReportJob::Start(std::function<void(RunControl &)> work, std::function<void()> then)
{
    if (IsRunning()) {
        return;
    }
    control = std::make_shared<RunControl>();
    thread.reset(QThread::create([work = std::move(work), shared = control] { work(*shared); }));
    connect(
        thread.get(), &QThread::finished, this, [this, then = std::move(then)] { Finish(then); });
    emit Started();
    pulse.start();
    thread->start(QThread::LowPriority);
}

void ReportJob::Cancel()
{
    if (IsRunning()) {
        control->Cancel();
    }
}

void ReportJob::Finish(const std::function<void()> &then)
{
    pulse.stop();
    thread->wait();
    thread.release()->deleteLater(); // it is still emitting
    then();
    emit Ended();
}
