#include "base/painted_work.h"

#include <QEventLoop>
#include <QScopedValueRollback>
#include <QThread>

#include <memory>

namespace {

bool workRunning = false;

}

void RunPainted(const std::function<void()> &work)
{
    const QScopedValueRollback running(workRunning, true);
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
}

bool IsWorkRunning()
{
    return workRunning;
}
