#include "db/schema_scripts.h"

#include "db/dialect.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

static void LoadResource()
{
    Q_INIT_RESOURCE(schema); // not reached by itself from a static library
}

namespace {

QString NameOf(const Dialect &dialect)
{
    return QString::fromLatin1(dialect.engine).toLower();
}

QStringList StatementsOf(const QString &path)
{
    static const QRegularExpression comment(u"^--.*\\n"_s, QRegularExpression::MultilineOption);
    QFile file(path);
    const bool open = file.open(QIODevice::ReadOnly);
    Q_ASSERT(open);
    const QString script = open ? QString::fromUtf8(file.readAll()) : QString();
    QStringList statements;
    for (const QString &part : QString(script).remove(comment).split(u";\n"_s)) {
        if (const QString statement = part.trimmed(); !statement.isEmpty()) {
            statements << statement;
        }
    }
    return statements;
}

} // namespace

QStringList FirstSchema(const Dialect &dialect)
{
    LoadResource();
    return StatementsOf(u":/schema/%1.sql"_s.arg(NameOf(dialect)));
}

std::vector<SchemaStep> SchemaSteps(const Dialect &dialect)
{
    LoadResource();
    const QDir folder(u":/schema/steps"_s);
    const QString ending = u'.' + NameOf(dialect) + u".sql"_s;
    std::vector<SchemaStep> steps;
    for (const QString &file : folder.entryList({u'*' + ending}, QDir::Files, QDir::Name)) {
        const QString title = file.chopped(ending.size());
        steps.push_back({.number = title.section(u'-', 0, 0).toInt(),
                         .name = title.section(u'-', 1),
                         .statements = StatementsOf(folder.filePath(file))});
    }
    return steps;
}

int NewestSchema()
{
    static const int newest = SchemaSteps(kSqlite).back().number;
    return newest;
}
