#include "support/servers/own_servers.h"

#include "support/core/test_data_source.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

OwnServers::OwnServers(QString action, QString name)
    : start(std::move(action))
    , ownName(std::move(name))
{ }

const OwnServers *OwnServers::Add(const QString &action, const QString &name)
{
    auto *const servers = new OwnServers(action, name); // the framework's from now on
    testing::AddGlobalTestEnvironment(servers);
    return servers;
}

QString OwnServers::Folder() const
{
    return QStringLiteral(TB_SERVERS_DIR "_") + ownName;
}

void OwnServers::Run(const QString &action) const
{
    const int code = QProcess::execute(
        QStringLiteral(TB_SOURCE_DIR "/tests/support/servers/servers"), {action, Folder()});
    ASSERT_EQ(code, 0) << qPrintable(action);
}

void OwnServers::SetUp()
{
    Run(start);
    QFile file(Folder() + u"/odbc.ini"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    for (const QString &section : QString::fromUtf8(file.readAll()).split(u"\n\n"_s)) {
        const QString name = section.section(u']', 0, 0).section(u'[', 1);
        test_data_source::Define(name, section.section(u'\n', 1));
    }
}
