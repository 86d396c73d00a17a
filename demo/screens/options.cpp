#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"

#include <QDialog>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWizardPages = 7;

void DrawWizard(Studio &studio, QDialog &wizard)
{
    for (int page = 1; page <= kWizardPages; ++page) {
        studio.Draw(u"wizard-%1"_s.arg(page), wizard);
        if (page < kWizardPages) {
            Press(wizard, u"next"_s);
        }
    }
}

} // namespace

void DrawOptions(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    QWidget *frame = &studio.Frame();
    studio.DrawDialog(
        u"options"_s,
        [&] { dialogs.options(frame); },
        [&](QDialog &sheet) {
            Press(sheet, u"monitorSpecified"_s);
            studio.DrawPages(u"options"_s, sheet);
        });
    studio.DrawDialog(
        u"global-options"_s,
        [&] { dialogs.globalOptions(frame); },
        [&](QDialog &sheet) { studio.DrawPages(u"global-options"_s, sheet); });
    studio.DrawDialog(
        u"wizard"_s,
        [&] { dialogs.setupWizard(frame); },
        [&](QDialog &wizard) { DrawWizard(studio, wizard); });
}
