#include "admin/save_report.h"

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SaveReport)
};

} // namespace

bool SaveReport::IsDone() const
{
    return questions.isEmpty() && !isDeclined && !isUnknown && settings.isEmpty()
        && notDone.isEmpty() && leftOut.isEmpty() && statements.isEmpty();
}

QString SaveReport::InWords() const
{
    if (IsDone() || isDeclined || !questions.isEmpty()) {
        return {};
    }
    QStringList lines = notDone + leftOut;
    if (!settings.isEmpty()) {
        lines << Words::tr("Not all settings were written.") + u' '
                + Words::tr("Left as they were: %1.").arg(unwritten.join(u", "_s));
    }
    lines << (isUnknown ? Words::tr(
                  "It is not known whether everything was written. Please look at it again.")
                        : Words::tr("What is not named here was written as it was entered."));
    QStringList reasons;
    for (const SettingsFailure &failure : settings) {
        reasons << TextOf(failure);
    }
    return (QStringList(lines.join(u'\n')) + reasons + ReasonsOf(statements)).join(u"\n\n"_s);
}

void SaveReport::Add(const char *what, const SettingsResult &result)
{
    if (result) {
        return;
    }
    unwritten << QCoreApplication::translate("SettingsNames", what);
    if (!settings.contains(result.error())) {
        settings.append(result.error());
    }
}

void SaveReport::Add(ActionId action, const Outcome &outcome)
{
    questions += outcome.questions;
    statements += outcome.failures;
    isUnknown = isUnknown || outcome.state == Outcome::State::Unknown;
    const QString what = QCoreApplication::translate("Action", KindOf(action).notDone);
    if (!outcome.failures.isEmpty() && !notDone.contains(what)) {
        notDone << what;
    }
    if (!outcome.refusal.isEmpty()) {
        leftOut << outcome.refusal;
    }
}
