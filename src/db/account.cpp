#include "db/account.h"

#include "base/text.h"
#include "db/dialect.h"
#include "db/odbc.h"

#include <QCoreApplication>

#include <array>
#include <odbcinst.h>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Account)
};

// As the drivers of the servers call it; letter case does not matter.
constexpr const char *kKeys[] = {"UserName", "User", "UID"};

// The embedded engine's number. A reader meets with it when the files beside the database, which all that have
// it open share, are not there and he may not make them.
constexpr int kReadOnlyFile = 8;

} // namespace

QString AccountOf(const QString &dsn)
{
    const QByteArray section = dsn.toUtf8();
    for (const char *const key : kKeys) {
        std::array<char, 256> text {};
        SQLGetPrivateProfileString(
            section.constData(), key, "", text.data(), static_cast<int>(text.size()), "odbc.ini");
        if (const QString account = TextFromUtf8(text.data()).trimmed(); !account.isEmpty()) {
            return account;
        }
    }
    return kUsualAccount;
}

QString WithLackedRight(const Dialect &dialect,
                        const odbc::Diagnostic &failed,
                        const QString &account,
                        const QString &dsn)
{
    if (&dialect == &kSqlite && failed.native == kReadOnlyFile) {
        return Words::tr(
                   "The file of the database may only be read. That, too, needs a program that may "
                   "write to it to have it open: start the accounting service. (%1)")
            .arg(failed.text);
    }
    if (!LacksRight(dialect, failed.sqlState.toStdString(), failed.native)) {
        return failed.text;
    }
    return Words::tr("The account \"%1\" of the data source \"%2\" lacks the right to this: %3")
        .arg(account, dsn, failed.text);
}
