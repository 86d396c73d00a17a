#include "base/mac_address.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

std::optional<QString> MacFrom(const QString &text)
{
    static const QRegularExpression form(
        u"^(?:[0-9A-F]{12}|[0-9A-F]{2}([-:])[0-9A-F]{2}(?:\\1[0-9A-F]{2}){4}"
        "|[0-9A-F]{4}\\.[0-9A-F]{4}\\.[0-9A-F]{4})$"_s);
    static const QRegularExpression marks(u"[-:.]"_s);
    QString digits = text.trimmed().toUpper();
    if (!form.match(digits).hasMatch()) {
        return std::nullopt;
    }
    return digits.remove(marks);
}
