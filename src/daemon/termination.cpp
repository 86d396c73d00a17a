#include "daemon/termination.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

int OpenSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr); // threads made later inherit it
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

} // namespace

Termination::Termination(QObject *parent)
    : QObject(parent)
    , descriptor(OpenSignals())
    , notifier(descriptor, QSocketNotifier::Read)
{
    connect(&notifier, &QSocketNotifier::activated, this, &Termination::Read);
}

Termination::~Termination()
{
    notifier.setEnabled(false);
    close(descriptor);
}

void Termination::Read()
{
    signalfd_siginfo signal {};
    while (read(descriptor, &signal, sizeof signal) == sizeof signal) {
        if (signal.ssi_signo == SIGHUP) {
            emit ReloadAsked();
        } else {
            emit StopAsked();
        }
    }
}
