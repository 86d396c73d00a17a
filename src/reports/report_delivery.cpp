#include "reports/report_delivery.h"

#include "reports/report_mail.h"
#include "reports/statement_files.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

std::optional<QString> WriteAsSaved(const ReportTablePtr &table,
                                    const SavedReport &target,
                                    const OutputOptions &options,
                                    RunControl &control,
                                    ReportProblem &problem)
{
    if (!target.split) {
        return WriteReport(table, target.output, control, problem, options)
            ? std::optional(target.output)
            : std::nullopt;
    }
    qsizetype written = 0;
    if (WriteStatementFiles(table, target.output, control, problem, written, options)) {
        return u"%1 statements in the folder %2"_s.arg(QString::number(written),
                                                       QFileInfo(target.output).path());
    }
    problem.text += u" (%1 of %2 statements are written)"_s.arg(written).arg(table->groups.size());
    return std::nullopt;
}

bool MailReport(const ReportTable &table, const SavedReport &target, QString &problem)
{
    QFile file(target.output);
    if (file.size() > kMostMailedBytes) {
        problem = u"%1 is larger than %2 MiB and was not sent"_s.arg(target.output)
                      .arg(kMostMailedBytes / 1024 / 1024);
        return false;
    }
    const QString title = table.layout.title.trimmed();
    ReportMail mail {.to = target.mail,
                     .subject = u"%1: %2"_s.arg(title, table.period),
                     .text = title + u'\n' + table.period + u'\n' + table.filter,
                     .fileName = QFileInfo(target.output).fileName(),
                     .file = {}};
    if (file.open(QIODevice::ReadOnly)) {
        mail.file = file.readAll();
    }
    if (mail.file.isEmpty() || file.error() != QFileDevice::NoError) {
        problem = u"%1 was not sent: %2"_s.arg(target.output, file.errorString());
        return false;
    }
    if (!SendMail(mail, problem)) {
        problem = u"%1 was not sent to %2: %3"_s.arg(target.output, target.mail, problem);
        return false;
    }
    return true;
}
