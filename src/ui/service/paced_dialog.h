// What the dialogs around the service share: a sequence at a time, with its progress window.
#pragma once

#include "service/service_sequences.h"
#include "ui/common/dialog.h"

#include <QPointer>

#include <functional>

class ProgressWindow;

class PacedDialog : public Dialog
{
    Q_OBJECT

public:
    using Dialog::Dialog;

    // Esc and the title bar's button; without effect during a sequence.
    void reject() override;

protected:
    // False: the sequence had nothing to do.
    using Sequence = std::function<bool(const StepSink &)>;

    // Runs the sequence beside a new progress window, which goes with its end. Keys and clicks made
    // meanwhile lead to nothing, so no second sequence can start inside or right after the first.
    void RunPaced(const Sequence &sequence);

private:
    bool busy = false;
    QPointer<ProgressWindow> window;
};
