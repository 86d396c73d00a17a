// The reports with years of history in the database: rows, pages, the window, and who writes meanwhile.
#include "app/administrator_app.h"
#include "reports/benchmarks.h"

int main(int argc, char **argv)
{
    constexpr int kRepetitions = 1;
    const CAdministratorApp app(argc, argv);
    Promises promises;
    AddRows(promises);
    AddStatements(promises);
    AddPages(promises);
    AddWindow(promises);
    AddWriters(promises);
    return RunAndCompare(argc, argv, promises.ratios, kRepetitions, promises.bounds);
}
