#include "reports/saved_report.h"

#include "config/key_file.h"
#include "reports/catalogue.h"
#include "reports/layout_table.h"
#include "reports/output_format.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SavedReport)
};

const QString kEnding = u".toml"_s;
const QStringList kEveryWords {u"never"_s, u"day"_s, u"week"_s, u"month"_s};

template <typename IdType>
KeptFilter<IdType> FilterIn(const LayoutTable &table, const char *only, const char *allBut)
{
    const bool isOnly = table.Has(only);
    if (isOnly && table.Has(allBut)) {
        table.Fail(table.Line(allBut),
                   Words::tr("\"%1\" and \"%2\" cannot stand together")
                       .arg(QLatin1StringView(only), QLatin1StringView(allBut)));
    }
    KeptFilter<IdType> filter;
    for (const quint32 number : table.Numbers(isOnly ? only : allBut)) {
        filter.ids += IdType {number};
    }
    if (table.Has(only) || table.Has(allBut)) {
        filter.effect = isOnly ? FilterEffect::Only : FilterEffect::AllBut;
    }
    return filter;
}

template <typename IdType>
void PutFilter(toml::table &table,
               const KeptFilter<IdType> &filter,
               const char *only,
               const char *allBut)
{
    if (filter.effect == FilterEffect::None) {
        return;
    }
    toml::array ids;
    for (const IdType id : filter.ids) {
        ids.push_back(static_cast<int64_t>(id.value));
    }
    table.insert(filter.effect == FilterEffect::Only ? only : allBut, std::move(ids));
}

ReportSchedule ScheduleIn(const toml::table &root, LayoutError &error)
{
    const LayoutTable whole(root, error);
    const toml::table *node = root["schedule"].as_table();
    if (node == nullptr) {
        if (whole.Has("schedule")) {
            whole.Fail(whole.Line("schedule"), Words::tr("\"schedule\" is not a [schedule]"));
        }
        return {};
    }
    const LayoutTable table(*node, error);
    table.AllowOnly({u"every"_s, u"day"_s, u"at"_s});
    if (!table.Has("every")) {
        whole.Fail(whole.Line("schedule"), Words::tr("a schedule needs \"every\""));
    }
    ReportSchedule schedule;
    schedule.every = static_cast<ReportSchedule::Every>(table.Choice("every", kEveryWords));
    const bool ofWeek = schedule.every == ReportSchedule::Every::Week;
    schedule.day = table.Integer("day", 1, 1, ofWeek ? 7 : ReportSchedule::kLastDayOfMonth);
    schedule.at = QTime::fromString(table.Text("at", u"02:15"_s), Qt::ISODate);
    if (!schedule.at.isValid() || schedule.at.msec() != 0) {
        table.Fail(table.Line("at"), Words::tr("\"at\" is not a time such as 02:15"));
    }
    return schedule;
}

SavedReport ReportIn(const toml::table &root, LayoutError &error)
{
    const LayoutTable table(root, error);
    table.AllowOnly({u"report"_s,
                     u"period"_s,
                     u"users"_s,
                     u"all_users_but"_s,
                     u"groups"_s,
                     u"all_groups_but"_s,
                     u"output"_s,
                     u"split"_s,
                     u"csv_bom"_s,
                     u"fail_if_empty"_s,
                     u"mail"_s,
                     u"schedule"_s});
    SavedReport report;
    report.row = FindReport(table.Text("report"));
    if (report.row < 0) {
        table.Fail(table.Line("report"), Words::tr("\"report\" names none of the reports"));
    }
    report.period = table.Text("period", report.period);
    report.users = FilterIn<UserId>(table, "users", "all_users_but");
    report.groups = FilterIn<GroupId>(table, "groups", "all_groups_but");
    report.output = table.Text("output");
    report.split = table.Flag("split");
    report.csvBom = table.Flag("csv_bom");
    report.failIfEmpty = table.Flag("fail_if_empty");
    report.mail = table.Text("mail");
    report.schedule = ScheduleIn(root, error);
    return report;
}

// A filter that names nobody must not make the report one on everybody.
template <typename IdType>
bool NamesNobody(const KeptFilter<IdType> &filter)
{
    return filter.effect != FilterEffect::None && filter.ids.isEmpty();
}

// A mail system may take what begins with "|", "/" or "-" for a program, a file or an option.
bool IsAddress(const QString &text)
{
    const bool isPlain = std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.isPrint() && !c.isSpace() && !u",;:|<>()[]\\\"'`$"_s.contains(c);
    });
    return isPlain && !text.startsWith(u'-') && !text.startsWith(u'/');
}

bool IsFileName(const QString &text)
{
    return std::none_of(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
}

QString FilterProblem(const SavedReport &report)
{
    if (NamesNobody(report.users) || NamesNobody(report.groups)) {
        return Words::tr("The users and groups to report on must name somebody.");
    }
    const bool isNarrowed =
        report.users.effect != FilterEffect::None || report.groups.effect != FilterEffect::None;
    return isNarrowed && report.period == u"all" && report.row != kStatementRow
        ? Words::tr("Users and groups narrow a report only together with a period.")
        : QString();
}

} // namespace

QString ProblemOf(const SavedReport &report)
{
    if (!PeriodNamed(report.period, Today())) {
        return Words::tr("\"%1\" is no period.").arg(report.period);
    }
    if (!IsFileName(report.output)) {
        return Words::tr("The name of the file has a line break or another control character.");
    }
    if (!QDir::isAbsolutePath(report.output) || !FormatOf(report.output)) {
        return Words::tr("The file needs its full path, and must end in %1.").arg(EndingsInWords());
    }
    if (report.split && report.row != kStatementRow) {
        return Words::tr("Only statements can be written as a file for each user.");
    }
    if (report.split && !report.mail.isEmpty()) {
        return Words::tr("A mail carries one file, not a file for each user.");
    }
    if (!IsAddress(report.mail)) {
        return Words::tr("\"%1\" is no mail address.").arg(report.mail);
    }
    return FilterProblem(report);
}

QString NameProblem(const QString &name)
{
    constexpr qsizetype kMostBytes = 50; // its timer's name has up to four letters for each
    const bool isPlain = std::all_of(name.begin(), name.end(), [](QChar c) {
        return c.isLetterOrNumber() || c == u' ' || c == u'-' || c == u'_' || c == u'.';
    });
    if (name.isEmpty() || !name.front().isLetterOrNumber() || name.back() == u' ' || !isPlain) {
        return Words::tr("A name has letters, digits, blanks, \"-\", \"_\" and \".\", and begins "
                         "with a letter or a digit.");
    }
    return name.toUtf8().size() > kMostBytes ? Words::tr("The name is too long.") : QString();
}

SavedReports::SavedReports(const ConfigStore &settings)
    : folder(QDir(settings.Folder()).filePath(u"saved-reports"_s))
{ }

QString SavedReports::FileOf(const QString &name) const
{
    return QDir(folder).filePath(name + kEnding);
}

bool SavedReports::Has(const QString &name) const
{
    return !key_file::IsMissing(FileOf(name));
}

tl::expected<QStringList, SettingsFailure> SavedReports::Names() const
{
    if (key_file::IsMissing(folder)) {
        return QStringList();
    }
    const QDir place(folder);
    if (!QFileInfo(folder).isReadable() || !QFileInfo(folder).isExecutable()) {
        return tl::unexpected(
            SettingsFailure {folder, 0, Words::tr("cannot be read: permission denied")});
    }
    QStringList names;
    for (const QString &file : place.entryList({u'*' + kEnding}, QDir::Files, QDir::Name)) {
        names += file.chopped(kEnding.size());
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

tl::expected<SavedReport, SettingsFailure> SavedReports::Read(const QString &name) const
{
    const QString file = FileOf(name);
    if (!NameProblem(name).isEmpty()) {
        return tl::unexpected(
            SettingsFailure {file, 0, Words::tr("has a name that no report can have")});
    }
    const auto bytes = key_file::Read(file);
    if (!bytes) {
        return tl::unexpected(bytes.error());
    }
    if (!*bytes) {
        return tl::unexpected(SettingsFailure {file, 0, Words::tr("does not exist")});
    }
    return SavedReportFrom(**bytes, file);
}

SettingsResult SavedReports::Write(const QString &name, const SavedReport &report) const
{
    const QString file = FileOf(name);
    const bool isNew = key_file::IsMissing(file);
    if (!QFileInfo::exists(folder)) {
        // The configuration folder hands on its group, and who else may read.
        QDir().mkpath(folder);
    }
    const key_file::WriterLock lock(folder, ConfigStore::kLockWait);
    if (!lock.IsHeld()) {
        return tl::unexpected(SettingsFailure {file, 0, lock.Problem()});
    }
    if (const auto former = isNew ? SavedReport() : Read(name); !former) {
        return tl::unexpected(former.error());
    }
    SettingsResult result = key_file::Replace(file, TomlOf(report));
    if (result && isNew) {
        using P = QFile::Permission;
        QFile::setPermissions(file, P::ReadOwner | P::WriteOwner | P::ReadGroup | P::WriteGroup);
    }
    return result;
}

SettingsResult SavedReports::Remove(const QString &name) const
{
    QFile file(FileOf(name));
    if (!file.remove() && file.exists()) {
        return tl::unexpected(SettingsFailure {
            file.fileName(), 0, Words::tr("cannot be removed: %1").arg(file.errorString())});
    }
    return {};
}

QByteArray TomlOf(const SavedReport &report)
{
    toml::table table;
    const auto put = [&](const char *key, const QString &text) {
        table.insert(key, text.toStdString());
    };
    put("report", ShortNameOf(report.row));
    put("period", report.period);
    PutFilter(table, report.users, "users", "all_users_but");
    PutFilter(table, report.groups, "groups", "all_groups_but");
    put("output", report.output);
    const std::pair<const char *, bool> flags[] = {
        {"split", report.split}, {"csv_bom", report.csvBom}, {"fail_if_empty", report.failIfEmpty}};
    for (const auto &[key, isOn] : flags) {
        if (isOn) {
            table.insert(key, true);
        }
    }
    if (!report.mail.isEmpty()) {
        put("mail", report.mail);
    }
    if (report.schedule.IsSet()) {
        const auto &every = kEveryWords.at(static_cast<qsizetype>(report.schedule.every));
        table.insert("schedule",
                     toml::table {{"every", every.toStdString()},
                                  {"day", report.schedule.day},
                                  {"at", TimeText(report.schedule.at).toStdString()}});
    }
    std::ostringstream text;
    text << table << '\n';
    return QByteArray::fromStdString(text.str());
}

tl::expected<SavedReport, SettingsFailure> SavedReportFrom(const QByteArray &toml,
                                                           const QString &file)
{
    LayoutError error {file, 0, {}};
    SavedReport report;
    try {
        const toml::table root =
            toml::parse(std::string_view(toml.constData(), static_cast<size_t>(toml.size())));
        report = ReportIn(root, error);
    } catch (const toml::parse_error &problem) {
        error.line = static_cast<int>(problem.source().begin.line);
        error.text = Words::tr("it is no TOML");
    }
    if (error.text.isEmpty()) {
        error.text = ProblemOf(report);
        error.text.chop(error.text.endsWith(u'.') ? 1 : 0); // the failure is a sentence of its own
    }
    return error.text.isEmpty() ? tl::expected<SavedReport, SettingsFailure>(report)
                                : tl::unexpected(key_file::Damaged(file, error.line, error.text));
}
