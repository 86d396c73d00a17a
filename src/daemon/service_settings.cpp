#include "daemon/service_settings.h"

#include "admin/exclusions.h"
#include "admin/local_addresses.h"
#include "base/text.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSysInfo>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsualPeriod = 60; // seconds
constexpr int kUsualGrace = 300;
constexpr int kLongestPeriod = 86400;
constexpr int kByLogin = 2; // of "IdentMode"

// The machine's own id is not told to others.
QString Digest(const QByteArray &ofWhat)
{
    const QByteArray text = "tollbrook " + QSysInfo::machineUniqueId() + ofWhat;
    const auto digest = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
    return QString::fromLatin1(digest.toHex().left(32));
}

// One key while its values are read; what is bad in it is noted.
class SettingsReader
{
public:
    SettingsReader(const ConfigStore &settingsStore, QStringList &noted)
        : store(settingsStore)
        , faults(noted)
    { }

    // Runs `take` with the key's values, unless they cannot be read.
    template <typename Take>
    void Read(ConfigKeyId id, const Take &take)
    {
        key = id;
        const auto opened = store.ReadKey(id);
        if (!opened) {
            faults << TextOf(opened.error());
            return;
        }
        take(*opened);
    }

    // Empty for a missing value; nothing for one that is no text, which is noted.
    std::optional<QString> Text(const KeyReader &reader, const TextValue &value)
    {
        if (reader.IsOfAnotherKind(value)) {
            Note(value, u"is to be a text in quotation marks"_s);
            return std::nullopt;
        }
        return reader.ReadText(value).value_or(QString());
    }

    // A missing or empty value is `usual`, a bad one leaves `field` as it is.
    template <typename Number>
    void Take(const KeyReader &reader,
              const TextValue &value,
              qint64 usual,
              qint64 least,
              qint64 most,
              Number &field)
    {
        const auto text = Text(reader, value);
        if (!text) {
            return;
        }
        bool isNumber = true;
        const qint64 number =
            text->trimmed().isEmpty() ? usual : text->trimmed().toLongLong(&isNumber);
        if (!isNumber || number < least || number > most) {
            Note(value, u"is to be a number from %1 to %2"_s.arg(least).arg(most));
            return;
        }
        field = static_cast<Number>(number);
    }

    void TakeFlag(const KeyReader &reader, const TextValue &value, bool &field)
    {
        if (const auto text = Text(reader, value)) {
            field = IntegerFrom(*text) != 0;
        }
    }

    // `field` is true for the second word.
    void TakeWord(const KeyReader &reader,
                  const TextValue &value,
                  const QString &usual,
                  const QString &other,
                  bool &field)
    {
        const auto text = Text(reader, value);
        if (!text) {
            return;
        }
        const QString word = text->trimmed().toLower();
        if (!word.isEmpty() && word != usual && word != other) {
            Note(value, u"is to be \"%1\" or \"%2\""_s.arg(usual, other));
            return;
        }
        field = word == other;
    }

    void Note(const TextValue &value, const QString &whatIsWrong)
    {
        Note(QString::fromLatin1(value.name), whatIsWrong);
    }

    void Note(const QString &name, const QString &whatIsWrong)
    {
        faults << u"%1 in %2 %3."_s.arg(name, store.FileOf(key), whatIsWrong);
    }

private:
    const ConfigStore &store;
    QStringList &faults;
    ConfigKeyId key = ConfigKeyId::Base;
};

// An account of the service's own needs a data source of its own.
void ReadDataSource(const KeyReader &base, SettingsReader &reader, ServiceSettings &settings)
{
    const auto shared = reader.Text(base, values::kBillDsn);
    const auto own = reader.Text(base, values::kServiceDsn);
    if (own && !own->isEmpty()) {
        settings.dataSource = *own;
    } else if (own) {
        settings.dataSource = shared.value_or(settings.dataSource);
    }
}

void ReadBase(const KeyReader &base, SettingsReader &reader, ServiceSettings &settings)
{
    ReadDataSource(base, reader, settings);
    if (const auto id = reader.Text(base, values::kGatewayId)) {
        settings.gatewayId = id->trimmed().isEmpty() ? Digest({}) : id->trimmed().left(64);
    }
    int period = static_cast<int>(settings.period.count());
    reader.Take(base, values::kTimer, 0, 0, kLongestPeriod, period);
    settings.period = std::chrono::seconds(period == 0 ? kUsualPeriod : period);
    int grace = static_cast<int>(settings.idleGrace.count());
    reader.Take(base, values::kIdleGrace, kUsualGrace, 1, kLongestPeriod, grace);
    settings.idleGrace = std::chrono::seconds(grace);
    int identification = static_cast<int>(settings.identification);
    reader.Take(base, values::kIdentMode, 0, 0, kByLogin, identification);
    settings.identifiesByLogin = identification == kByLogin;
    settings.identification = identification == 1 ? Identification::ByMac : Identification::ByIp;
    reader.Take(base, values::kMonitorProtMode, 0, 0, 3, settings.protocols);
    reader.Take(
        base, values::kAuthPort, 0, 0, std::numeric_limits<quint16>::max(), settings.authPort);
    reader.TakeFlag(base, values::kControlMac, settings.bindsHardware);
    reader.TakeFlag(base, values::kAuthReqNew, settings.newUser.authRequired);
    reader.TakeWord(base, values::kOnStop, u"pass"_s, u"keep"_s, settings.keepsTableOnStop);
    reader.TakeWord(base, values::kUnknownIpv6, u"refuse"_s, u"pass"_s, settings.passesUnknownIpv6);
}

void ReadPrice(const KeyReader &key, SettingsReader &reader, ServiceSettings &settings)
{
    const auto text = reader.Text(key, values::kTrafPrice);
    if (!text) {
        return;
    }
    bool isNumber = true;
    const double price = text->trimmed().isEmpty() ? 0 : text->trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(price) || price < 0) {
        reader.Note(values::kTrafPrice, u"is to be a price of 0 or more"_s);
        return;
    }
    settings.price = price;
}

// New users come in with all of it or with what was read before, so that none of them is without a limit
// that was meant.
void ReadProfile(const KeyReader &key, SettingsReader &reader, ServiceSettings &settings)
{
    bool areNumbers = true;
    for (const TextValue &value : values::kAllTexts) {
        if (value.key == ConfigKeyId::DefProfile) {
            qint64 number = -1;
            reader.Take(key, value, 0, 0, std::numeric_limits<qint32>::max(), number);
            areNumbers = number >= 0 && areNumbers;
        }
    }
    if (!areNumbers) {
        return;
    }
    const bool required = settings.newUser.authRequired;
    settings.newUser = LoadDefaultProfile(key, KeyReader::kBufferBytes);
    settings.newUser.authRequired = settings.newUser.authRequired || required;
}

void ReadAddresses(const KeyReader &key, SettingsReader &reader, ServiceSettings &settings)
{
    const QList<UnreadValue> unread = UnreadAddresses(key);
    for (const UnreadValue &each : unread) {
        reader.Note(each.name, each.whatIsWrong);
    }
    if (unread.isEmpty()) {
        settings.local = LoadRanges(key);
        settings.excluded = LoadExclusions(key, kMaxWizardExclusions);
    }
}

} // namespace

ReadSettings ReadServiceSettings(const ConfigStore &store, const ServiceSettings &before)
{
    ReadSettings read {before, {}};
    ServiceSettings &settings = read.settings;
    SettingsReader reader(store, read.faults);
    reader.Read(ConfigKeyId::Base, [&](const KeyReader &key) { ReadBase(key, reader, settings); });
    reader.Read(ConfigKeyId::Price,
                [&](const KeyReader &key) { ReadPrice(key, reader, settings); });
    reader.Read(ConfigKeyId::DefProfile,
                [&](const KeyReader &key) { ReadProfile(key, reader, settings); });
    reader.Read(ConfigKeyId::LocalIp,
                [&](const KeyReader &key) { ReadAddresses(key, reader, settings); });
    reader.Read(ConfigKeyId::AdapterBind, [&](const KeyReader &key) {
        settings.adapter = reader.Text(key, values::kBoundNic).value_or(settings.adapter);
    });
    return read;
}

QString InstanceId()
{
    return Digest(QFile::symLinkTarget(u"/proc/self/ns/net"_s).toUtf8());
}

QStringList ProblemsOf(const ServiceSettings &settings)
{
    QStringList problems;
    if (settings.dataSource.isEmpty()) {
        problems << u"The settings name no data source (\"bill dsn\")."_s;
    }
    if (settings.local.isEmpty()) {
        problems << u"There is no local address range: nobody would be counted. Set one in the "
                    "console's options, page Network."_s;
    }
    if (settings.identifiesByLogin) {
        problems
            << u"Identification by Windows user name is not supported yet: choose IP address or "
               "MAC address in the console's options, page Bind."_s;
    }
    return problems;
}
