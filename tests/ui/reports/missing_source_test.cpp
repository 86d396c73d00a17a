// A program of its own: the driver manager remembers the data sources that a process has used.
#include "reports_fixture.h"

using namespace Qt::StringLiterals;

TEST_F(Reports, AMissingDataSourceIsNamedWithWhatToDo)
{
    const QByteArray described = qgetenv("ODBCINI");
    qputenv("ODBCINI", QFile::encodeName(folder.filePath(u"no.ini"_s)));
    Select(0);
    ClickGenerate();
    qputenv("ODBCINI", described);
    EXPECT_TRUE(Message().startsWith(u"data source \"bill\": "_s)) << Message().toStdString();
    EXPECT_TRUE(Message().contains(u"no section [bill] in odbc.ini"_s)) << Message().toStdString();
    Grab(*dialog, u"reports-no-source"_s);
}
