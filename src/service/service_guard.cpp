#include "service/service_guard.h"

using namespace Qt::StringLiterals;

bool PurgeMayOpen(const ServiceControl &control, Prompt &prompt)
{
    const auto state = control.Query();
    if (!state) {
        prompt.Tell(u"Can not find records about Tollbrook Service!"_s, Prompt::Icon::Error);
    } else if (state != ServiceControl::State::Stopped) {
        prompt.Tell(u"Please stop the Tollbrook Service before proceeding"_s, Prompt::Icon::Error);
    }
    return state == ServiceControl::State::Stopped;
}

std::optional<bool> AdapterMayChange(const ServiceControl &control, Prompt &prompt)
{
    const auto state = control.Query();
    if (!state) {
        prompt.Tell(u"This command may be executed only on a server machine"_s);
        return std::nullopt;
    }
    const bool stopped = state == ServiceControl::State::Stopped;
    if (!stopped) {
        prompt.Tell(u"To make any changes in NIC options you have to stop the service before"_s);
    }
    return stopped;
}
