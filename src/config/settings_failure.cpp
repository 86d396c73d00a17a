#include "config/settings_failure.h"

using namespace Qt::StringLiterals;

QString TextOf(const SettingsFailure &failure)
{
    if (failure.line == 0) {
        return u"The settings file \"%1\" %2."_s.arg(failure.file, failure.reason);
    }
    return u"Line %1 of the settings file \"%2\" %3."_s.arg(
        QString::number(failure.line), failure.file, failure.reason);
}
