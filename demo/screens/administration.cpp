#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"

#include <QDialog>
#include <QWizard>

using namespace Qt::StringLiterals;

namespace {

void DrawWizardPages(Studio &studio, const QString &name, QDialog &dialog)
{
    auto &wizard = static_cast<QWizard &>(dialog);
    for (int page = 1, last = 0; wizard.currentId() != last; ++page) {
        studio.Draw(name + u'-' + QString::number(page), wizard);
        last = wizard.currentId();
        wizard.next();
    }
}

} // namespace

void DrawAdministration(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    QWidget *frame = &studio.Frame();
    const auto drawPages = [&studio](const QString &name) {
        return [&studio, name](QDialog &sheet) { studio.DrawPages(name, sheet); };
    };
    studio.DrawDialog(u"login-manager"_s, [&] { dialogs.logins(frame); });
    studio.DrawDialog(u"unmonitored"_s, [&] { dialogs.unmonitored(frame); });
    studio.DrawDialog(
        u"options"_s, [&] { dialogs.options(frame); }, drawPages(u"options"_s));
    studio.DrawDialog(
        u"global-options"_s, [&] { dialogs.globalOptions(frame); }, drawPages(u"global-options"_s));
    studio.DrawDialog(
        u"setup-wizard"_s,
        [&] { dialogs.setupWizard(frame); },
        [&](QDialog &wizard) { DrawWizardPages(studio, u"setup-wizard"_s, wizard); });
}
