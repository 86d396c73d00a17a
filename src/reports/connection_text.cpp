#include "reports/connection_text.h"

#include "config/config_store.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString ReportsDataSource(const ConfigStore &settings)
{
    const QString own = settings.ReadText(values::kReportsDsn).value_or(QString());
    return own.isEmpty() ? u"bill"_s : own;
}

QString ReportConnectionText(const QString &dsn)
{
    return u"DSN = "_s + dsn + u";UID = System;PWD;DSQ=";
}

ConnectionText ParseConnectionText(const QString &text)
{
    ConnectionText result;
    for (const QString &part : text.split(u';', Qt::SkipEmptyParts)) {
        const QString name = part.section(u'=', 0, 0).trimmed().toUpper();
        const QString value = part.section(u'=', 1).trimmed();
        if (name == u"DSN") {
            result.dsn = value;
        } else if (name == u"UID") {
            result.user = value.toLower();
        } else if (name == u"PWD") {
            result.password = value;
        }
    }
    return result;
}
