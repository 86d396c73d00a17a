// The reports with years of history in the database: rows, pages, the window, and who writes meanwhile.
#include "app/administrator_app.h"
#include "reports/benchmarks.h"
#include "support/must.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class FailingPrompt : public Prompt
{
public:
    void Tell(const QString &text, Icon /*icon*/, const QString & /*caption*/) override
    {
        Fail(text);
    }
    [[nodiscard]] bool Ask(const QString &text, const QString & /*caption*/) override
    {
        Fail(text);
    }
};

} // namespace

int main(int argc, char **argv)
{
    constexpr int kRepetitions = 1;
    CAdministratorApp app(argc, argv);
    FailingPrompt prompt;
    const QTemporaryDir folder;
    app.SetUp({folder.path(), QDBusConnection(u"nobody"_s)}, prompt, [] { return true; });
    Promises promises;
    AddRows(promises);
    AddPages(promises);
    AddWindow(promises);
    AddWriters(promises);
    return RunAndCompare(argc, argv, promises.ratios, kRepetitions, promises.bounds);
}
