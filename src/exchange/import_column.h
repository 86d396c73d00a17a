// The columns by which users are imported and exported, and how they are called in the file.
#pragma once

#include <QString>

#include <optional>

enum class ImportColumn {
    UserName, // by which users are known; every file has it
    FullName,
    Description,
    Workstation,
    IpAddress,
    MacAddress,
    Group,
    CreateGroup, // whether a group that is not there is made
    Access,
    TrafficLimit, // megabytes
    TimeLimit, // hours
    Period,
    Price, // currency per megabyte, or "global"
    Blocked, // by the administrator
    LoginRequired,
    Login,
    Password, // of a login; never exported
    TrafficCredit, // megabytes, or "unlimited"
    MoneyCredit, // in the currency in use
    CreditExpires, // a day; never for an empty one
};

constexpr size_t kImportColumns = static_cast<size_t>(ImportColumn::CreditExpires) + 1;

// As it is written at the head of a file, in English whatever the language of the program: a file of
// one console is read by every other one.
[[nodiscard]] QString HeadingOf(ImportColumn column);

// The same for a person.
[[nodiscard]] QString LabelOf(ImportColumn column);

// The column that a heading names, in English or German; the case of letters, blanks, hyphens,
// underscores and what stands in parentheses make no difference.
[[nodiscard]] std::optional<ImportColumn> ColumnCalled(const QString &heading);

// A word as it is compared: without regard to case and blanks.
[[nodiscard]] QString WordKey(const QString &word);
