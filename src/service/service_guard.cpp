#include "service/service_guard.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ServiceGuard)
};

} // namespace

bool PurgeMayOpen(const ServiceControl &control, Prompt &prompt)
{
    const auto state = control.Query();
    if (!state) {
        prompt.Tell(Words::tr("Can not find records about Tollbrook Service!"),
                    Prompt::Icon::Error);
    } else if (state != ServiceControl::State::Stopped) {
        prompt.Tell(Words::tr("Please stop the Tollbrook Service before proceeding"),
                    Prompt::Icon::Error);
    }
    return state == ServiceControl::State::Stopped;
}

std::optional<bool> AdapterMayChange(const ServiceControl &control, Prompt &prompt)
{
    const auto state = control.Query();
    if (!state) {
        prompt.Tell(Words::tr("This command may be executed only on a server machine"));
        return std::nullopt;
    }
    const bool stopped = state == ServiceControl::State::Stopped;
    if (!stopped) {
        prompt.Tell(
            Words::tr("To make any changes in NIC options you have to stop the service before"));
    }
    return stopped;
}
