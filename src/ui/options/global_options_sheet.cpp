#include "ui/options/global_options_sheet.h"

#include "ui/common/sheet.h"
#include "ui/options/global_options_pages.h"

using namespace Qt::StringLiterals;

bool OpenGlobalOptions(const AppServices &services,
                       QWidget *parent,
                       const std::function<void()> &refreshPanes)
{
    GlobalOptions options = LoadGlobalOptions(services.settings);
    Sheet sheet(u"Options"_s, parent);
    sheet.Add(new CAdministratorGenOpt1st(services.prompt, options));
    sheet.Add(new CAdministratorGenOptBind(options));
    sheet.Add(new CAdministratorGenOptMisc(services.prompt, options));
    sheet.Add(new CAdministratorGenOptNetwork(services.prompt, options));
    sheet.Add(new CAdministratorGenOptProtocols(services.prompt, options));
    if (!sheet.Run(0)) {
        return false;
    }
    SaveGlobalOptions(options, services.settings, services.prompt, [&refreshPanes] {
        if (refreshPanes) {
            refreshPanes();
        }
    });
    return true;
}
