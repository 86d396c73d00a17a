// What a purge leaves and what goes, in words for whoever is asked about it.
#pragma once

#include "admin/purge.h"

// The first day kept; an impossible day stands for the next one that exists. Of no use with
// Keep::Nothing.
[[nodiscard]] QDate FirstDateKept(const PurgeChoice &choice, QDate today);

// As the locale writes it out.
[[nodiscard]] QString DayInWords(QDate date);

// For the question.
[[nodiscard]] QString PurgeInWords(const PurgeChoice &choice, QDate today);

// The question that comes before the others when the first day kept lies after today: all there is
// would go. Nothing for any other day.
[[nodiscard]] std::optional<QString> QuestionOnLateDay(const PurgeChoice &choice, QDate today);
