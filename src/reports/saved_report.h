// Reports that are made again and again: what they are on, how and where they are written, under a name.
#pragma once

#include "config/config_store.h"
#include "reports/report_schedule.h"
#include "reports/selection.h"

struct SavedReport
{
    int row = 0; // of the catalogue
    QString period = QStringLiteral("all"); // as PeriodNamed() reads it: a rule, or days
    KeptFilter<UserId> users {};
    KeptFilter<GroupId> groups {};
    QString output {}; // the file's full path; its ending is the format
    bool split = false; // a file for each statement
    bool csvBom = false;
    bool failIfEmpty = false; // nothing to report leaves the former file, and sends no mail
    QString mail {}; // the address that the file is sent to; empty for none
    ReportSchedule schedule {};

    bool operator==(const SavedReport &) const = default;
};

// What is wrong with a report that is to be saved or made, for a person; empty for nothing.
[[nodiscard]] QString ProblemOf(const SavedReport &report);

// What is wrong with a name of a saved report: it becomes the name of a file and of a timer.
[[nodiscard]] QString NameProblem(const QString &name);

// A file for each in the folder "saved-reports" of the configuration folder, named as the report with ".toml"
// behind it. Nothing is cached. A file that is damaged is a failure, and is never replaced.
class SavedReports
{
public:
    explicit SavedReports(const ConfigStore &settings);

    // In the order of the alphabet, whether they can be read or not: a file that somebody put there under
    // a name that no report can have is among them.
    [[nodiscard]] tl::expected<QStringList, SettingsFailure> Names() const;

    // A report without a file, and one whose name or content is at fault, are failures.
    [[nodiscard]] tl::expected<SavedReport, SettingsFailure> Read(const QString &name) const;

    // Replaces the report of that name if there is one, and makes the folder where there is none. Members
    // of the file's group may read and write it.
    [[nodiscard]] SettingsResult Write(const QString &name, const SavedReport &report) const;
    [[nodiscard]] SettingsResult Remove(const QString &name) const;

    [[nodiscard]] bool Has(const QString &name) const;
    [[nodiscard]] QString FileOf(const QString &name) const;

private:
    QString folder;
};

// The report as its file holds it, and back. `file` is only named in failures.
[[nodiscard]] QByteArray TomlOf(const SavedReport &report);
[[nodiscard]] tl::expected<SavedReport, SettingsFailure> SavedReportFrom(const QByteArray &toml,
                                                                         const QString &file);
