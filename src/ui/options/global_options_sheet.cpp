#include "ui/options/global_options_sheet.h"

#include "admin/protocol_storage.h"
#include "ui/common/sheet.h"
#include "ui/options/global_options_pages.h"
#include "ui/options/settings_window.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GlobalOptions)
};

} // namespace

bool OpenGlobalOptions(const AppServices &services,
                       QWidget *parent,
                       const std::function<void()> &refreshPanes)
{
    Edited<GlobalOptions> edited;
    edited.base = Told(services, LoadGlobalOptions(services.settings));
    edited.base.protocols = AwaitProtocols(services, parent, LoadProtocols);
    edited.draft = edited.base;
    GlobalOptions &draft = edited.draft;
    Sheet sheet(Words::tr("Options"), parent);
    sheet.Add(new CAdministratorGenOpt1st(services.prompt, draft));
    sheet.Add(new CAdministratorGenOptBind(draft));
    sheet.Add(new CAdministratorGenOptMisc(services.prompt, draft));
    sheet.Add(new CAdministratorGenOptNetwork(services.prompt, draft));
    sheet.Add(new CAdministratorGenOptProtocols(services.prompt, draft));
    const auto save = [&] {
        return PerformSave(
            services, &sheet, [edited, &store = services.settings](const Answers &answers) {
                return SaveGlobalOptions(edited, store, answers);
            });
    };
    return RunSettingsSheet(sheet, save, refreshPanes);
}
