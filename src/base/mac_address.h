// Hardware addresses as people write them and as the database holds them.
#pragma once

#include <QString>

#include <optional>

// Twelve hexadecimal digits in capitals, as they are stored, of "00:11:22:33:44:AA", of the same with "-",
// of "0011.2233.44aa" or of the digits alone; nothing for any other text.
[[nodiscard]] std::optional<QString> MacFrom(const QString &text);
