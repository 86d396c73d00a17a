#include "nodes.h"

#include "db/schema.h"

#include <QFile>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

int BasePort()
{
    const int given = qEnvironmentVariableIntValue("GALERA_BASE_PORT");
    return given == 0 ? 34000 : given;
}

QByteArray Section(const QByteArray &name, const QByteArray &servers)
{
    return '[' + name + "]\nDriver=MariaDB Unicode\n" + servers
        + "\nDatabase=test\nUser=system\nPassword=secret\nCharset=utf8mb4\n";
}

QByteArray Address(int node)
{
    return "127.0.0.1:" + QByteArray::number(BasePort() + node);
}

} // namespace

Nodes::Nodes(const QString &galeraScript, const QString &dataFolder)
    : script(galeraScript)
    , folder(dataFolder)
{
    if (!Run({u"start"_s})) {
        problem = u"The cluster does not start."_s;
        return;
    }
    DefineDataSources();
    problem = CreateSchema(QLatin1StringView(kCluster)).value_or(QString());
}

Nodes::~Nodes()
{
    (void)Run({u"stop"_s});
}

QByteArray Nodes::Only(int node)
{
    return "node" + QByteArray::number(node);
}

void Nodes::Do(const QString &action, const QStringList &nodes) const
{
    if (!Run(QStringList {action} + nodes)) {
        std::fprintf(stderr, "The cluster does not %s.\n", qPrintable(action));
        (void)Run({u"stop"_s});
        std::_Exit(EXIT_FAILURE);
    }
}

bool Nodes::Run(const QStringList &arguments) const
{
    QStringList all = arguments;
    all.insert(1, folder);
    return QProcess::execute(script, all) == 0;
}

void Nodes::DefineDataSources() const
{
    const QString name = folder + u"/odbc.ini"_s;
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly)) {
        return;
    }
    for (const int node : {1, 2, 3}) {
        file.write(
            Section(Only(node), "Server=127.0.0.1\nPort=" + QByteArray::number(BasePort() + node)));
    }
    file.write(Section(kCluster, "Server=" + Address(1) + ',' + Address(2) + ',' + Address(3)));
    qputenv("ODBCINI", name.toUtf8());
}
