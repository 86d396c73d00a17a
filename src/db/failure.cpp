#include "db/failure.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Failure)
};

QString Reason(Failure::Kind kind)
{
    switch (kind) {
    case Failure::Kind::Refused:
    case Failure::Kind::NotUnique:
        return Words::tr("The database refused it.");
    case Failure::Kind::Locked:
        return Words::tr("Another program holds the database.");
    case Failure::Kind::Conflict:
        return Words::tr("Somebody else changed the same at that moment.");
    case Failure::Kind::ConnectionLost:
        return Words::tr("There is no connection to the database.");
    case Failure::Kind::NotWritable:
        return Words::tr("The database takes no changes now.");
    case Failure::Kind::NewerSchema:
        return Words::tr("This program cannot work with the database.");
    case Failure::Kind::NotAnswered:
        return Words::tr("The database does not answer.");
    case Failure::Kind::Cancelled:
        return Words::tr("It was cancelled.");
    case Failure::Kind::OutcomeUnknown:
        return Words::tr("The connection to the database was lost while it was being written.");
    case Failure::Kind::Output:
        return Words::tr("A file could not be written.");
    }
    Q_UNREACHABLE();
}

} // namespace

QString Failure::InWords() const
{
    if (kind == Kind::Output && !text.isEmpty()) {
        return text;
    }
    return kind == Kind::Cancelled || text.isEmpty() ? Reason(kind) : Reason(kind) + u'\n' + text;
}

Failure OutputFailure(const QString &text)
{
    return {
        .kind = Failure::Kind::Output, .statement = {}, .sqlState = {}, .native = 0, .text = text};
}

QStringList ReasonsOf(const QList<Failure> &failures)
{
    QStringList words;
    for (const Failure &failure : failures) {
        words << failure.InWords();
    }
    words.removeDuplicates();
    return words;
}
