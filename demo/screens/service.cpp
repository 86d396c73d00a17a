#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Presses a button of `dialog` that runs a paced sequence, and draws its progress window on the way.
void PressAndDrawProgress(Studio &studio,
                          QDialog &dialog,
                          const QString &button,
                          const QString &name)
{
    constexpr int kOnTheWayMs = 2200;
    QTimer::singleShot(kOnTheWayMs, &dialog, [&] {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"progressWindow" && window->isVisible()) {
                studio.Draw(name, *window);
            }
        }
    });
    Press(dialog, button);
}

} // namespace

void DrawService(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    const auto control = [&] { dialogs.serviceControl(&studio.Frame()); };
    studio.DrawDialog(u"service-control"_s, control);
    if (!studio.Wants(u"service-stopped"_s) && !studio.Wants(u"progress"_s)
        && !studio.Wants(u"reconnect"_s) && !studio.Wants(u"purge"_s)) {
        return;
    }
    studio.DrawDialog(
        u"service-stopped"_s, control, [&](QDialog &dialog) { Press(dialog, u"stop"_s); });
    studio.DrawDialog(u"purge"_s, [&] { dialogs.purge(&studio.Frame()); });
    studio.DrawDialog(u"reconnect"_s, [&] { dialogs.reconnect(&studio.Frame()); });
    studio.DrawDialog(
        u"connection-restored"_s,
        [&] { dialogs.reconnect(&studio.Frame()); },
        [&](QDialog &dialog) {
            PressAndDrawProgress(studio, dialog, u"reconnect"_s, u"progress"_s);
        });
}
