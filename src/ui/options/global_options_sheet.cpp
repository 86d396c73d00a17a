#include "ui/options/global_options_sheet.h"

#include "app/administrator_app.h"
#include "ui/common/sheet.h"
#include "ui/options/global_options_pages.h"

using namespace Qt::StringLiterals;

bool OpenGlobalOptions(QWidget *parent, const std::function<void()> &refreshPanes)
{
    GlobalOptions options = LoadGlobalOptions(theApp->Config());
    Sheet sheet(u"Options"_s, parent);
    sheet.Add(new CAdministratorGenOpt1st(options));
    sheet.Add(new CAdministratorGenOptBind(options));
    sheet.Add(new CAdministratorGenOptMisc(options));
    sheet.Add(new CAdministratorGenOptNetwork(options));
    sheet.Add(new CAdministratorGenOptProtocols(options));
    if (!sheet.Run(0)) {
        return false;
    }
    SaveGlobalOptions(options, theApp->Config(), theApp->Messages(), [&refreshPanes] {
        if (refreshPanes) {
            refreshPanes();
        }
    });
    return true;
}
