#include "support/servers/server_section.h"

#include <QFile>

using namespace Qt::StringLiterals;

std::optional<QString> ServerSection(const QString &engine)
{
    QFile file(QStringLiteral(TB_SERVERS_DIR "/odbc.ini"));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const auto heading = u"[%1]\n"_s.arg(engine);
    return QString::fromUtf8(file.readAll()).section(heading, 1).section(u"\n["_s, 0, 0);
}

QString ServersHint()
{
    return u"The database servers do not run. Start them with: %1/tests/support/servers/servers "
           "start %2"_s.arg(QStringLiteral(TB_SOURCE_DIR), QStringLiteral(TB_SERVERS_DIR));
}
