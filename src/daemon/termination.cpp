#include "daemon/termination.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

int OpenSignals()
{
    sigset_t wanted;
    sigemptyset(&wanted);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&wanted, signal);
    }
    pthread_sigmask(SIG_BLOCK, &wanted, nullptr); // threads made later inherit it
    return signalfd(-1, &wanted, SFD_CLOEXEC | SFD_NONBLOCK);
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
