#include "ui/options/settings_window.h"

#include "app/answering.h"
#include "app/perform.h"
#include "ui/common/sheet.h"

#include <QCoreApplication>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SettingsWindow)
};

} // namespace

void TellUnreadSettings(const AppServices &services, const QList<SettingsFailure> &failures)
{
    if (failures.isEmpty()) {
        return;
    }
    QStringList parts {Words::tr(
        "Not all settings could be read. Those are shown as if they were missing, and cannot be "
        "written before the file is mended.")};
    for (const SettingsFailure &failure : failures) {
        parts << TextOf(failure);
    }
    services.prompt.Tell(parts.join(u"\n\n"_s), Prompt::Icon::Error);
}

std::optional<ProtocolTable>
AwaitProtocols(const AppServices &services, QWidget *parent, Result<ProtocolTable> (*load)())
{
    auto table = Await(services, parent, Words::tr("Reading the protocols..."), load);
    if (!table) {
        TellUnread(
            services,
            Words::tr("The protocols could not be read. They are not shown, and stay as they are."),
            table.error());
        return std::nullopt;
    }
    return *std::move(table);
}

QWidget *UnreadProtocolsNote()
{
    auto *note = new QLabel(
        Words::tr("The protocols could not be read from the database. They stay as they are."));
    note->setObjectName(u"unreadProtocols"_s);
    note->setWordWrap(true);
    return note;
}

bool PerformSave(const AppServices &services,
                 QWidget *parent,
                 const std::function<SaveReport(const Answers &)> &save)
{
    if (!MayChange(services)) {
        return false;
    }
    const SaveReport report = AwaitAnswered(
        services,
        parent,
        Words::tr("Storing the settings..."),
        [&save](const Answers &answers) { return [save, answers] { return save(answers); }; },
        [](const SaveReport &each) { return each.questions; });
    if (report.IsDone()) {
        emit services.news.SettingsStored();
        return true;
    }
    if (!report.isDeclined) {
        services.prompt.Tell(report.InWords(), Prompt::Icon::Error);
    }
    return false;
}

bool RunSettingsSheet(Sheet &sheet,
                      const std::function<bool()> &save,
                      const std::function<void()> &refreshPanes)
{
    bool maybeWritten = false;
    sheet.SetApply([&save, &maybeWritten] {
        maybeWritten = true;
        return save();
    });
    const bool allWritten = sheet.Run(0);
    if (maybeWritten && refreshPanes) {
        refreshPanes();
    }
    return allWritten;
}
