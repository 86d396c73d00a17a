// tollbrook: what the console does, from a terminal or a script.
#include "cli/command_line.h"
#include "cli/plain_text.h"

#include <QCoreApplication>
#include <QLocale>
#include <QLoggingCategory>

#include <clocale>
#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// What failed is told by the command; a log line might hold what a terminal obeys.
void TellPlainly(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QString line = PlainText(qFormatLogMessage(type, context, text));
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::signal(SIGPIPE,
                SIG_IGN); // a reader that goes is output that failed, and has an exit status
    QCoreApplication::setApplicationName(u"tollbrook"_s);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    QLocale::setDefault(QLocale::c()); // numbers and days are the same on every machine
    // "status" tells of settings that are open to everybody; before each command it would be noise.
    QLoggingCategory::setFilterRules(
        u"tollbrook.db.warning=false\ntollbrook.config.rights.warning=false"_s);
    qInstallMessageHandler(TellPlainly);
    Terminal terminal(stdin, stdout, stderr);
    return static_cast<int>(
        RunCommandLine(QCoreApplication::arguments(), QStringLiteral(TB_VERSION), terminal));
}
