#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"

#include <QDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

void EnterLogin(const QDialog &dialog)
{
    dialog.findChild<QLineEdit *>(u"name"_s)->setText(u"library"_s);
    Press(dialog, u"byIp"_s);
}

} // namespace

void DrawAdministration(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    QWidget *frame = &studio.Frame();
    studio.DrawDialog(
        u"login-manager"_s,
        [&] { dialogs.logins(frame); },
        [&](QDialog &manager) {
            studio.DrawDialog(
                u"login-manager-create"_s, [&] { Press(manager, u"create"_s); }, EnterLogin);
        });
    studio.DrawDialog(u"unmonitored"_s, [&] { dialogs.unmonitored(frame); });
}
