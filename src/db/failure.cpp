#include "db/failure.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString Reason(Failure::Kind kind)
{
    const auto words = [](const char *text) {
        return QCoreApplication::translate("Failure", text);
    };
    switch (kind) {
    case Failure::Kind::Refused:
        return words(QT_TRANSLATE_NOOP("Failure", "The database refused it."));
    case Failure::Kind::Locked:
        return words(QT_TRANSLATE_NOOP("Failure", "Another program holds the database."));
    case Failure::Kind::Conflict:
        return words(
            QT_TRANSLATE_NOOP("Failure", "Somebody else changed the same at that moment."));
    case Failure::Kind::ConnectionLost:
        return words(QT_TRANSLATE_NOOP("Failure", "There is no connection to the database."));
    case Failure::Kind::NotWritable:
        return words(QT_TRANSLATE_NOOP("Failure", "The database takes no changes now."));
    case Failure::Kind::NotAnswered:
        return words(QT_TRANSLATE_NOOP("Failure", "The database does not answer."));
    case Failure::Kind::Cancelled:
        return words(QT_TRANSLATE_NOOP("Failure", "It was cancelled."));
    case Failure::Kind::OutcomeUnknown:
        return words(QT_TRANSLATE_NOOP(
            "Failure", "The connection to the database was lost while it was being written."));
    }
    Q_UNREACHABLE();
}

} // namespace

QString Failure::InWords() const
{
    return kind == Kind::Cancelled || text.isEmpty() ? Reason(kind) : Reason(kind) + u'\n' + text;
}
