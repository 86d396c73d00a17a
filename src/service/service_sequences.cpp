#include "service/service_sequences.h"

#include "base/wait.h"

namespace {

using State = ServiceControl::State;

constexpr int kPolls = 300;

// Milliseconds.
constexpr int kBetweenPolls = 100;
constexpr int kBeforeCommand = 1300;
constexpr int kBeforeRefusal = 550;
constexpr int kBeforeFinish = 400;
constexpr int kBeforeClosing = 800;

// What starting and stopping differ in.
struct Command
{
    bool (ServiceControl::*send)() const;
    State from;
    State goal;
    bool (*undecided)(State); // polling goes on
    ProgressStep trying;
    ProgressStep done;
    ProgressStep failed;
};

constexpr Command kStart {&ServiceControl::Start,
                          State::Stopped,
                          State::Running,
                          [](State state) { return state != State::Running; },
                          ProgressStep::TryStart,
                          ProgressStep::Started,
                          ProgressStep::StartFailed};

constexpr Command kStop {
    &ServiceControl::Stop,
    State::Running,
    State::Stopped,
    [](State state) { return state == State::Running || state == State::StopPending; },
    ProgressStep::TryStop,
    ProgressStep::Stopped,
    ProgressStep::StopFailed};

bool ReachesGoal(const Command &command, const ServiceControl &control, const StepSink &step)
{
    State state = command.from;
    for (int poll = 0; poll < kPolls && command.undecided(state); ++poll) {
        state = control.Query().value_or(state);
        PacedWait(kBetweenPolls);
        step(ProgressStep::Tick);
    }
    return state == command.goal;
}

bool Succeeds(const Command &command, const ServiceControl &control, const StepSink &step)
{
    step(command.trying);
    PacedWait(kBeforeCommand);
    const bool accepted = (control.*command.send)();
    if (!accepted) {
        PacedWait(kBeforeRefusal);
    }
    const bool succeeded = accepted && ReachesGoal(command, control, step);
    step(succeeded ? command.done : command.failed);
    return succeeded;
}

bool Run(const Command &command,
         const ServiceControl &control,
         const StepSink &step,
         const StateSink &changed)
{
    const bool wanted = command.goal == State::Running;
    if (control.IsRunning() == wanted) {
        return false;
    }
    if (Succeeds(command, control, step)) {
        changed(wanted);
        PacedWait(kBeforeFinish);
        step(ProgressStep::Finished);
    }
    PacedWait(kBeforeClosing);
    return true;
}

void Connect(const StepSink &step, const std::function<int()> &connect, ReconnectFlags &flags)
{
    step(ProgressStep::TryConnect);
    PacedWait(450);
    const bool succeeded = connect() == 0;
    flags.connected |= succeeded;
    PacedWait(200);
    step(succeeded ? ProgressStep::Connected : ProgressStep::ConnectFailed);
    PacedWait(400);
}

} // namespace

bool StartService(const ServiceControl &control, const StepSink &step, const StateSink &changed)
{
    return Run(kStart, control, step, changed);
}

bool StopService(const ServiceControl &control, const StepSink &step, const StateSink &changed)
{
    return Run(kStop, control, step, changed);
}

void Reconnect(const ServiceControl &control,
               const StepSink &step,
               const std::function<int()> &connect,
               ReconnectFlags &flags)
{
    flags.serviceRunning |= control.IsRunning() || Succeeds(kStart, control, step);
    PacedWait(300);
    if (control.IsRunning()) {
        Connect(step, connect, flags);
    } else {
        step(ProgressStep::Failed);
    }
    PacedWait(500);
    step(ProgressStep::Finished);
    PacedWait(1000);
}
