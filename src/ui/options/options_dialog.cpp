#include "ui/options/options_dialog.h"

#include "admin/options.h"
#include "admin/protocol_storage.h"
#include "ui/options/bind_page.h"
#include "ui/options/default_profile_page.h"
#include "ui/options/network_page.h"
#include "ui/options/options_pages.h"
#include "ui/options/page_list_sheet.h"
#include "ui/options/protocols_page.h"
#include "ui/options/settings_window.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Options)
};

void AddPages(PageListSheet &sheet, Prompt &prompt, Options &options)
{
    sheet.Add(new GeneralPage(prompt, options), Picture::Options);
    sheet.Add(
        new NetworkPage(prompt,
                        options.ranges,
                        {Words::tr("Local IP addresses"), Words::tr("Add..."), Words::tr("Remove")},
                        options.exclusions,
                        {Words::tr("Excluded IP addresses"),
                         Words::tr("Enter IP address to exclude:"),
                         Words::tr("Add..."),
                         Words::tr("Remove")}),
        Picture::Network);
    sheet.Add(new AdapterPage(prompt, options, SystemAdapters()), Picture::Adapter);
    sheet.Add(new TariffPage(prompt, options), Picture::Tariff);
    sheet.Add(new ProtocolsPage(prompt, options.protocols, options.monitorMode),
              Picture::Protocols);
    sheet.Add(new BindPage(options.identMode,
                           options.controlMac,
                           Words::tr("Prevent users from changing IP address")),
              Picture::Binding);
    sheet.Add(new AuthenticationPage(prompt, options), Picture::Logins);
    sheet.Add(new DefaultProfilePage(prompt, options), Picture::User);
}

} // namespace

bool OpenOptions(const AppServices &services,
                 QWidget *parent,
                 const std::function<void()> &refreshPanes)
{
    Edited<Options> edited;
    edited.base = Told(services, LoadOptions(services.settings));
    edited.base.protocols = AwaitProtocols(services, parent, LoadProtocols);
    edited.draft = edited.base;
    PageListSheet sheet(services.prompt, Words::tr("Options"), parent);
    AddPages(sheet, services.prompt, edited.draft);
    const auto save = [&] {
        return PerformSave(
            services, &sheet, [edited, &store = services.settings](const Answers &answers) {
                return SaveOptions(edited, store, answers);
            });
    };
    return RunSettingsSheet(sheet, save, refreshPanes);
}
