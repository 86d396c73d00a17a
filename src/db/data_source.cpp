#include "db/data_source.h"

#include "base/text.h"
#include "db/direct_connection.h"
#include "db/odbc.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <array>
#include <odbcinst.h>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(DataSource)
};

struct Option
{
    const Dialect &dialect;
    const char *key;
    const char *value;
};

constexpr Option kOptions[] = {
    {kSqlite, "StepAPI", "1"},
    {kSqlite, "JournalMode", "WAL"},
    {kSqlite, "SyncPragma", "NORMAL"},
    {kSqlite, "Timeout", "5000"},
    {kPostgresql, "UseDeclareFetch", "1"},
    {kPostgresql, "Fetch", "1000"},
    {kMariadb, "Charset", "utf8mb4"},
};

QByteArray ProfileValue(const QByteArray &dsn, const char *key)
{
    std::array<char, 4096> text {};
    SQLGetPrivateProfileString(
        dsn.constData(), key, "", text.data(), static_cast<int>(text.size()), "odbc.ini");
    return text.data();
}

// The keys of the section, in its order.
QStringList Keys(const QByteArray &dsn)
{
    std::array<char, 4096> names {}; // each ends with a NUL, the last with two
    const int length = SQLGetPrivateProfileString(dsn.constData(),
                                                  nullptr,
                                                  nullptr,
                                                  names.data(),
                                                  static_cast<int>(names.size()),
                                                  "odbc.ini");
    return QString::fromUtf8(names.data(), std::max(length, 0)).split(u'\0', Qt::SkipEmptyParts);
}

bool IsPassword(const QString &key)
{
    return key.compare(u"Password"_s, Qt::CaseInsensitive) == 0
        || key.compare(u"PWD"_s, Qt::CaseInsensitive) == 0;
}

} // namespace

QString RecommendedSection(const QString &dsn)
{
    DirectConnection database;
    if (!database.Open(dsn)) {
        return {};
    }
    const Dialect &dialect = database.Engine();
    const QByteArray section = dsn.toUtf8();
    QString text = u"[%1]\n"_s.arg(dsn);
    const auto isRecommended = [&](const QString &key) {
        return std::any_of(std::begin(kOptions), std::end(kOptions), [&](const Option &option) {
            return &option.dialect == &dialect
                && key.compare(QLatin1StringView(option.key), Qt::CaseInsensitive) == 0;
        });
    };
    for (const QString &key : Keys(section)) {
        if (!isRecommended(key)) {
            const QByteArray value = ProfileValue(section, key.toUtf8().constData());
            text += u"%1 = %2\n"_s.arg(key, IsPassword(key) ? u"***"_s : QString::fromUtf8(value));
        }
    }
    for (const Option &option : kOptions) {
        if (&option.dialect == &dialect) {
            text +=
                u"%1 = %2\n"_s.arg(QLatin1StringView(option.key), QLatin1StringView(option.value));
        }
    }
    return text;
}

// The driver that makes files knows the key, and the others leave it aside.
QByteArray OpeningText(const QString &dsn, const QString &account, AbsentFile absent)
{
    const QByteArray text = "DSN=" + dsn.toUtf8() + ";UID=" + account.toUtf8();
    return absent == AbsentFile::IsMade ? text : text + ";NoCreat=1";
}

std::optional<QString> AbsentFileOf(const QString &dsn, const QString &driverText)
{
    const QString file = QString::fromUtf8(ProfileValue(dsn.toUtf8(), "Database"));
    const bool isOfFiles = driverText.contains(u"[SQLite]"_s);
    return isOfFiles && !file.isEmpty() && !QFile::exists(file) ? std::optional(file)
                                                                : std::nullopt;
}

QString RefusedConnectionText(const QString &dsn, const QString &driverText)
{
    const auto file = AbsentFileOf(dsn, driverText);
    return file
        ? Words::tr("The section [%1] of odbc.ini names \"%2\" as its Database, and there is "
                    "no such file.")
              .arg(dsn, *file)
        : driverText;
}

std::optional<QString>
NoDatabaseText(const Dialect &dialect, SQLHANDLE connection, const QString &dsn)
{
    if (!dialect.isFile || !odbc::DatabaseOf(connection).isEmpty()) {
        return std::nullopt;
    }
    return Words::tr("The section [%1] of odbc.ini names no Database.").arg(dsn);
}

bool IsDataSourceName(const QString &dsn)
{
    return !dsn.isEmpty() && dsn.toUtf8().size() <= SQL_MAX_DSN_LENGTH
        && std::none_of(dsn.begin(), dsn.end(), [](QChar c) {
               return QStringView(u"[]{}(),;?*=!@\\").contains(c);
           });
}

QString MissingSourceAdvice(const QString &dsn)
{
    if (!Keys(dsn.toUtf8()).isEmpty()) {
        return {};
    }
    return Words::tr(
               "There is no section [%1] in odbc.ini: add one for the database that the setting "
               "\"bill dsn\" names.")
        .arg(dsn);
}
