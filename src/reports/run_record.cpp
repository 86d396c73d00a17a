#include "reports/run_record.h"

#include "config/key_file.h"
#include "reports/layout_table.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(RunRecord)
};

using Result = TimerState::Result;

const QStringList kResultWords {u"failed"_s, u"done"_s}; // what does not say it has failed

QByteArray TomlOf(const RunRecord &record)
{
    const bool isDone = record.result == Result::Done;
    const toml::table table {{"ended", record.ended.toUTC().toString(Qt::ISODate).toStdString()},
                             {"result", kResultWords.at(isDone ? 1 : 0).toStdString()},
                             {"status", record.exitStatus}};
    std::ostringstream text;
    text << table << '\n';
    return QByteArray::fromStdString(text.str());
}

RunRecord RecordIn(const toml::table &root, LayoutError &error)
{
    constexpr int kMostStatus = 255;
    const LayoutTable table(root, error);
    table.AllowOnly({u"ended"_s, u"result"_s, u"status"_s});
    RunRecord record {.ended = QDateTime::fromString(table.Text("ended"), Qt::ISODate),
                      .result =
                          table.Choice("result", kResultWords) == 1 ? Result::Done : Result::Failed,
                      .exitStatus = table.Integer("status", 0, TimerState::kKilled, kMostStatus)};
    if (!record.ended.isValid()) {
        table.Fail(table.Line("ended"), Words::tr("\"ended\" is not a time"));
    }
    record.ended = record.ended.toLocalTime();
    return record;
}

tl::expected<RunRecord, SettingsFailure> RecordFrom(const QByteArray &toml, const QString &file)
{
    LayoutError error {file, 0, {}};
    RunRecord record;
    try {
        record = RecordIn(
            toml::parse(std::string_view(toml.constData(), static_cast<size_t>(toml.size()))),
            error);
    } catch (const toml::parse_error &problem) {
        error.line = static_cast<int>(problem.source().begin.line);
        error.text = Words::tr("it is no TOML");
    }
    return error.text.isEmpty() ? tl::expected<RunRecord, SettingsFailure>(record)
                                : tl::unexpected(key_file::Damaged(file, error.line, error.text));
}

} // namespace

std::optional<RunRecord> EndedRun(const QString &serviceResult,
                                  const QString &exitCode,
                                  const QString &exitStatus,
                                  const QDateTime &now)
{
    if (serviceResult.isEmpty()) {
        return std::nullopt;
    }
    bool isNumber = false;
    const int status = exitStatus.toInt(&isNumber); // else it is a signal's name
    return RunRecord {.ended = now.addMSecs(-now.time().msec()),
                      .result = serviceResult == u"success" ? Result::Done : Result::Failed,
                      .exitStatus =
                          exitCode == u"exited" && isNumber ? status : TimerState::kKilled};
}

RunRecords::RunRecords(const ConfigStore &settings)
    : isOfPackage(QDir::cleanPath(settings.Folder()) == u"/etc/tollbrook")
{
    folder = isOfPackage ? u"/var/lib/tollbrook-report-runs"_s
                         : QDir(settings.Folder()).filePath(u"report-runs"_s);
}

QString RunRecords::FileOf(const QString &name) const
{
    return QDir(folder).filePath(name + u".toml"_s);
}

tl::expected<std::optional<RunRecord>, SettingsFailure> RunRecords::Read(const QString &name) const
{
    const QString file = FileOf(name);
    const auto bytes = key_file::Read(file);
    if (!bytes) {
        return tl::unexpected(bytes.error());
    }
    if (!*bytes) {
        return std::optional<RunRecord>();
    }
    return RecordFrom(**bytes, file).map([](const RunRecord &record) {
        return std::optional(record);
    });
}

SettingsResult RunRecords::Write(const QString &name, const RunRecord &record) const
{
    const QString file = FileOf(name);
    if (!isOfPackage && key_file::IsMissing(folder)) {
        QDir().mkpath(folder);
    }
    SettingsResult result = key_file::Replace(file, TomlOf(record));
    if (result) {
        using P = QFile::Permission;
        QFile::setPermissions(file, P::ReadOwner | P::WriteOwner | P::ReadGroup | P::ReadOther);
    }
    return result;
}

SettingsResult RunRecords::Remove(const QString &name) const
{
    QFile file(FileOf(name));
    if (key_file::IsMissing(file.fileName()) || file.remove()) {
        return {};
    }
    return tl::unexpected(SettingsFailure {
        file.fileName(), 0, Words::tr("cannot be removed: %1").arg(file.errorString())});
}
