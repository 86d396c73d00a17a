#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"

using namespace Qt::StringLiterals;

void DrawAdministration(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    QWidget *frame = &studio.Frame();
    studio.DrawDialog(u"login-manager"_s, [&] { dialogs.logins(frame); });
    studio.DrawDialog(u"unmonitored"_s, [&] { dialogs.unmonitored(frame); });
}
