#include "exchange/import_column.h"

#include "base/text.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportColumn)
};

struct ColumnNames
{
    const char *english;
    QStringView others; // further names, parted by commas
};

// In the order of the enumeration, which is that of an exported file.
constexpr std::array<ColumnNames, kImportColumns> kNames {{
    {QT_TRANSLATE_NOOP("ImportColumn", "User name"), u"User,Name,Benutzername,Benutzer"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Full name"), u"Vollständiger Name"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Description"), u"Beschreibung"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Workstation"), u"Arbeitsplatz"},
    {QT_TRANSLATE_NOOP("ImportColumn", "IP address"), u"IP,IP-Adresse"},
    {QT_TRANSLATE_NOOP("ImportColumn", "MAC address"), u"MAC,MAC-Adresse"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Group"), u"Gruppe"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Create group"), u"Gruppe anlegen"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Access"), u"Access type,Zugang,Zugangsart"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Traffic limit"), u"Datenlimit"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Time limit"), u"Zeitlimit"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Accounting period"),
     u"Period,Abrechnungszeitraum,Zeitraum"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Price"), u"Preis"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Blocked"), u"Gesperrt"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Login required"), u"Anmeldung erforderlich"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Login"), u"Anmeldung"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Password"), u"Passwort,Kennwort"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Traffic credit"), u"Guthaben an Datenverkehr"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Money credit"), u"Guthaben an Geld"},
    {QT_TRANSLATE_NOOP("ImportColumn", "Credit expires"), u"Guthaben läuft ab"},
}};

QString HeadingKey(const QString &heading)
{
    QString key = WordKey(heading.left(heading.indexOf(u'(')));
    return key.remove(u'-').remove(u'_');
}

QHash<QString, ImportColumn> AllNames()
{
    QHash<QString, ImportColumn> names;
    for (size_t place = 0; place < kNames.size(); ++place) {
        const auto column = static_cast<ImportColumn>(place);
        names.insert(HeadingKey(QString::fromLatin1(kNames[place].english)), column);
        for (const QString &other : kNames[place].others.toString().split(u',')) {
            names.insert(HeadingKey(other), column);
        }
    }
    return names;
}

const char *EnglishOf(ImportColumn column)
{
    return kNames[static_cast<size_t>(column)].english;
}

} // namespace

QString HeadingOf(ImportColumn column)
{
    return QString::fromLatin1(EnglishOf(column));
}

QString LabelOf(ImportColumn column)
{
    return Words::tr(EnglishOf(column));
}

std::optional<ImportColumn> ColumnCalled(const QString &heading)
{
    static const QHash<QString, ImportColumn> names = AllNames();
    const auto found = names.constFind(HeadingKey(heading));
    return found == names.constEnd() ? std::nullopt : std::optional(*found);
}

QString WordKey(const QString &word)
{
    return NameKey(word).remove(u' ');
}
