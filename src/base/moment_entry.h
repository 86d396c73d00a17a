// Days and times of day as people type them into a field.
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <QTime>

#include <optional>

// Reads a day: year, month and day with the year in four digits ("2026-03-31"); day, month and year with
// points ("31.3.2026"); what `locale` writes for short, in its order and with its marks ("3/31/2026"). A
// year in two digits is one of this century and is understood only at the end. Years go from 1000 to
// 9999. Nothing for what may mean two days ("3/4/2026" where nobody writes so) and for a day that does
// not exist. Blanks around and behind the marks do not count.
[[nodiscard]] std::optional<QDate> DayFrom(const QString &typed, const QLocale &locale = QLocale());

// Reads a time of day: hours and minutes, or seconds too, with colons or points ("17:45", "9.05",
// "08:30:15"), or what `locale` writes for short ("5:45 PM"). Nothing for anything else.
[[nodiscard]] std::optional<QTime> TimeFrom(const QString &typed,
                                            const QLocale &locale = QLocale());
