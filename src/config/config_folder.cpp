#include "config/config_folder.h"

using namespace Qt::StringLiterals;

QString ConfigFolder(const QString &given)
{
    return !given.isEmpty() ? given : qEnvironmentVariable("TOLLBROOK_CONFIG", u"/etc/tollbrook"_s);
}
