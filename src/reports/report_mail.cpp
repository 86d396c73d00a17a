#include "reports/report_mail.h"

#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostWait = 300'000; // milliseconds; a mail system may look addresses up

// Lines as long as mail may have them.
QByteArray Base64(const QByteArray &bytes)
{
    constexpr qsizetype kLine = 76;
    const QByteArray letters = bytes.toBase64();
    QByteArray lines;
    lines.reserve(letters.size() + letters.size() / kLine + 1);
    for (qsizetype at = 0; at < letters.size(); at += kLine) {
        lines += letters.mid(at, kLine) + '\n';
    }
    return lines;
}

// A header's text in words of a length that mail takes, whatever letters it has.
QByteArray HeaderText(const QString &text)
{
    constexpr qsizetype kLetters = 10; // of up to four bytes each
    QByteArrayList words;
    const QList<uint> letters = text.simplified().toUcs4();
    for (qsizetype at = 0; at < letters.size(); at += kLetters) {
        const QList<uint> part = letters.mid(at, kLetters);
        const QByteArray bytes =
            QString::fromUcs4(reinterpret_cast<const char32_t *>(part.data()), part.size())
                .toUtf8();
        words += "=?UTF-8?B?" + bytes.toBase64() + "?=";
    }
    return words.join("\n ");
}

QString Sendmail()
{
    const QString found = QStandardPaths::findExecutable(u"sendmail"_s);
    return !found.isEmpty()
        ? found
        : QStandardPaths::findExecutable(u"sendmail"_s, {u"/usr/sbin"_s, u"/usr/lib"_s});
}

} // namespace

QByteArray MessageOf(const ReportMail &mail)
{
    const QByteArray boundary = "=_tollbrook_report"; // base64 has no "_"
    return "To: " + mail.to.toUtf8() + "\nSubject: " + HeaderText(mail.subject)
        + "\nAuto-Submitted: auto-generated\nMIME-Version: 1.0\n"
          "Content-Type: multipart/mixed; boundary=\""
        + boundary + "\"\n\n--" + boundary
        + "\nContent-Type: text/plain; charset=UTF-8\nContent-Transfer-Encoding: base64\n\n"
        + Base64(mail.text.toUtf8()) + "--" + boundary
        + "\nContent-Type: application/octet-stream\nContent-Transfer-Encoding: base64\n"
          "Content-Disposition: attachment; filename*=UTF-8''"
        + QUrl::toPercentEncoding(mail.fileName) + "\n\n" + Base64(mail.file) + "--" + boundary
        + "--\n";
}

bool SendMail(const ReportMail &mail, QString &problem)
{
    const QString program = Sendmail();
    if (program.isEmpty()) {
        problem = u"there is no sendmail: install a mail system, such as msmtp-mta or postfix"_s;
        return false;
    }
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, {u"-i"_s, u"--"_s, mail.to});
    process.write(MessageOf(mail));
    process.closeWriteChannel();
    if (!process.waitForFinished(kMostWait)) {
        problem = u"%1: %2"_s.arg(program, process.errorString());
        process.kill();
        process.waitForFinished();
        return false;
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return true;
    }
    problem = u"%1 ended with status %2. %3"_s.arg(program)
                  .arg(process.exitCode())
                  .arg(QString::fromLocal8Bit(process.readAll()).simplified())
                  .trimmed();
    return false;
}
