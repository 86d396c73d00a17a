#include "config/settings_failure.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SettingsFailure)
};

} // namespace

QString TextOf(const SettingsFailure &failure)
{
    if (failure.line == 0) {
        return Words::tr("The settings file \"%1\" %2.").arg(failure.file, failure.reason);
    }
    return Words::tr("Line %1 of the settings file \"%2\" %3.")
        .arg(QString::number(failure.line), failure.file, failure.reason);
}
