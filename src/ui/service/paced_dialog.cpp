#include "ui/service/paced_dialog.h"

#include "ui/service/progress_window.h"

#include <QCoreApplication>
#include <QScopeGuard>

void PacedDialog::reject()
{
    if (!busy) {
        QDialog::reject();
    }
}

void PacedDialog::RunPaced(const Sequence &sequence)
{
    if (busy) {
        return;
    }
    busy = true;
    setCursor(Qt::WaitCursor);
    const auto end = qScopeGuard([this] {
        QCoreApplication::processEvents(); // what was clicked during the waits arrives only now
        unsetCursor();
        busy = false;
    });
    delete window;
    window = new ProgressWindow(this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    const bool done = sequence([this](ProgressStep step) {
        if (window) {
            window->Take(step);
        }
    });
    if (done) {
        delete window;
        activateWindow();
    }
    // Kept: a sequence with nothing to do leaves its window standing. It can be closed, and goes with
    // the next sequence or with the dialog.
}
