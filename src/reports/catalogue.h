// The reports that the console offers, in the order of its list: sixteen that layout files describe, and
// users' statements.
#pragma once

#include <QString>

#include <array>

// Decides which date column a period compares.
enum class ReportCategory { Traffic = 0, Time = 1, Billing = 2, SiteAccess = 3 };

struct ReportEntry
{
    const char *title; // in English, trailing blanks included
    const char *description; // in English
    QStringView layoutFile; // below the installation folder, with a back-slash; none for statements
    ReportCategory category;
};

constexpr int kReportCount = 16; // of those with a layout file
constexpr int kStatementRow = kReportCount;
constexpr int kListedCount = kStatementRow + 1;

[[nodiscard]] const std::array<ReportEntry, kReportCount> &ReportCatalogue();

// Of any row that is listed.
[[nodiscard]] const ReportEntry &EntryOf(int row);

// As they are listed, in the language of the program.
[[nodiscard]] QString TitleOf(const ReportEntry &entry);
[[nodiscard]] QString DescriptionOf(const ReportEntry &entry);

// The installation folder followed directly by the row's layout file: the folder's text must end in
// a separator. An empty folder gives a relative path.
[[nodiscard]] QString LayoutPath(const QString &installationFolder, int row);

// The path as this system's files are named: a back-slash separates folders too.
[[nodiscard]] QString FileNameOf(QString layoutPath);

// The name by which FindReport() knows the row whatever its title becomes: that of its layout file alone.
[[nodiscard]] QString ShortNameOf(int row);

// The row that a person names on a command line: its number, its title or its layout file, as they are
// listed or the file's name or base name alone, without regard to case and outer blanks. -1 when it is
// none of them.
[[nodiscard]] int FindReport(const QString &name);
