// A report's file by mail, through the system's own sendmail.
#pragma once

#include <QByteArray>
#include <QString>

struct ReportMail
{
    QString to;
    QString subject;
    QString text;
    QString fileName; // of the attachment, without a folder
    QByteArray file;
};

// The message as sendmail reads it: headers, the text, the attachment. Line ends are "\n".
[[nodiscard]] QByteArray MessageOf(const ReportMail &mail);

// Hands the message to sendmail, which is looked for in $PATH and where the system keeps it. False, and
// `problem` filled with a sentence, when there is none or it did not take the message.
[[nodiscard]] bool SendMail(const ReportMail &mail, QString &problem);

// A larger file is refused by most mail servers, and is not sent.
constexpr qint64 kMostMailedBytes = qint64(25) * 1024 * 1024;
