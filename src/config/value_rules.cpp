#include "config/value_rules.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double kAnyNumber = std::numeric_limits<qint32>::max();
constexpr double kLongText = 1023; // bytes
constexpr double kShortText = 254;
constexpr double kSourceName = 32; // what ODBC takes
constexpr double kDay = 86400; // seconds

ValueRule Text(const TextValue &value, double most, const char *meaning)
{
    return {value, ValueKind::Text, 0, most, "", meaning};
}

ValueRule Needed(ValueRule rule)
{
    rule.least = 1;
    return rule;
}

ValueRule Number(const TextValue &value, double most, const char *meaning)
{
    return {value, ValueKind::Number, 0, most, "", meaning};
}

ValueRule Flag(const TextValue &value, const char *meaning)
{
    return {value, ValueKind::Flag, 0, 1, "", meaning};
}

ValueRule Word(const TextValue &value, const char *words, const char *meaning)
{
    return {value, ValueKind::Word, 0, 0, words, meaning};
}

ValueRule Amount(const TextValue &value, double least, const char *meaning)
{
    return {value, ValueKind::Amount, least, 1e9, "", meaning};
}

ValueRule Secret(ValueRule rule)
{
    rule.isSecret = true;
    return rule;
}

ValueRule PartOfMore(ValueRule rule)
{
    rule.isPartOfMore = true;
    return rule;
}

// Before the names of all keys but the base key.
QString PrefixOf(ConfigKeyId key)
{
    switch (key) {
    case ConfigKeyId::Base:
        return {};
    case ConfigKeyId::LocalIp:
        return u"localip/"_s;
    case ConfigKeyId::Price:
        return u"Price/"_s;
    case ConfigKeyId::DefProfile:
        return u"DefProfile/"_s;
    case ConfigKeyId::Ui:
        return u"UI/"_s;
    case ConfigKeyId::AdapterBind:
        return u"Tallyspring/"_s;
    case ConfigKeyId::CaptureDriver:
        return u"Linkage/"_s;
    }
    Q_UNREACHABLE();
}

bool IsNumber(const QString &text, bool withDecimals)
{
    static const QRegularExpression whole(u"^[0-9]{1,15}$"_s);
    static const QRegularExpression decimal(u"^[0-9]{1,15}(\\.[0-9]{1,15})?$"_s);
    return (withDecimals ? decimal : whole).match(text).hasMatch();
}

bool Fits(const ValueRule &rule, const QString &text)
{
    const auto isWithin = [&rule, &text] {
        const double number = text.toDouble();
        return number >= rule.least && number <= rule.most;
    };
    switch (rule.kind) {
    case ValueKind::Text: {
        const auto bytes = static_cast<double>(text.toUtf8().size());
        return bytes >= rule.least && bytes <= rule.most && !text.contains(QChar(0));
    }
    case ValueKind::Number:
        return IsNumber(text, false) && isWithin();
    case ValueKind::Amount:
        return IsNumber(text, true) && isWithin();
    case ValueKind::Flag:
        return text == u"0"_s || text == u"1"_s;
    case ValueKind::Word:
        return text.isEmpty() || QString::fromLatin1(rule.words).split(u' ').contains(text);
    }
    Q_UNREACHABLE();
}

QString ExpectationOf(const ValueRule &rule)
{
    const QString most = QString::number(rule.most, 'f', 0);
    switch (rule.kind) {
    case ValueKind::Text:
        return rule.least > 0 ? u"is to be a text of 1 to %1 bytes"_s.arg(most)
                              : u"is to be a text of at most %1 bytes"_s.arg(most);
    case ValueKind::Number:
        return u"is to be a whole number from 0 to %1"_s.arg(most);
    case ValueKind::Amount:
        return u"is to be a number from %1 to %2, with a point for the decimals"_s.arg(
            QString::number(rule.least), most);
    case ValueKind::Flag:
        return u"is to be 1 or 0"_s;
    case ValueKind::Word:
        return u"is to be one of: %1"_s.arg(
            QString::fromLatin1(rule.words).replace(u" "_s, u", "_s));
    }
    Q_UNREACHABLE();
}

} // namespace

const QList<ValueRule> &AllValueRules() // NOLINT(readability-function-size): it is a table
{
    using namespace values;
    static const QList<ValueRule> rules {
        Needed(Text(kBillDsn, kSourceName, "ODBC data source of the database")),
        Text(kServiceDsn, kSourceName, "the service's data source; empty: as \"bill dsn\""),
        Text(kReportsDsn, kSourceName, "the reports' data source; empty: bill"),
        Number(kPort, 65535, "port number"),
        Needed(Text(kPath, kShortText, "installation folder, ending in /")),
        Flag(kFirstStart, "the setup wizard runs at the next start"),
        Number(kDbConnectTimeout, kDay, "seconds until a connection is given up; 0: 10"),
        Number(kDbAnswerTimeout, kDay, "seconds until a statement is given up; 0: 30"),
        Number(kDbLockTimeout, kDay, "seconds to wait for rows that others hold; 0: 5"),
        Number(kSortBy, 2, "order of the users list: 0 names, 1 workstations, 2 full names"),
        Number(kRefresh, kAnyNumber, "first sort column of the users list"),
        Number(
            kPaneAutoRefreshMode, 5, "refresh: 0 none, 1 to 4 every 1, 3, 5, 10 minutes, 5 custom"),
        Number(kPaneAutoRefreshPeriod, kAnyNumber, "the custom period, minutes"),
        Number(kTimer, kDay, "seconds between two counts; 0: 60"),
        Text(kNic, kLongText, "network adapter chosen for the service"),
        Number(kIdentMode, 2, "users are told by: 0 IP address, 1 MAC address, 2 Windows name"),
        Flag(kControlMac, "users are kept from changing their IP address"),
        Number(kAuthPort, 65535, "TCP port of the authentication server"),
        Flag(kAuthReqNew, "all new users must authenticate"),
        Flag(kAllowNotLogged, "users not logged on to the domain may authenticate"),
        Flag(kAllowNonHost, "computers other than a user's own may authenticate"),
        Flag(kUserviewEnabled, "a domain logon is required"),
        Secret(Text(kClientPwd, kShortText, "password for deinstalling the client")),
        Number(
            kMonitorProtMode, 3, "monitored: 0 all, 1 basic, 2 marked, 3 all but marked protocols"),
        Text(kGatewayId, 64, "under which this gateway counts; empty: the machine's own"),
        Number(kIdleGrace, kDay, "seconds without a packet until a user is not on line"),
        Word(kOnStop, "pass keep", "whether the kernel's table goes with the service"),
        Word(kUnknownIpv6, "refuse pass", "IPv6 of unknown workstations"),
        Number(kCurUse, 2, "currency: 0 none, 1 defined, 2 in use"),
        Text(kCurrencyName, kShortText, "title of the currency"),
        Text(kCurrencySymbol, kShortText, "symbol of the currency, in capitals"),
        Amount(kCurrencyRate, 0.000001, "currency for one base unit"),
        Word(kReportPaper, "A4 A5 A3 Letter Legal", "paper of reports; empty: A4"),
        Word(kReportTurn, "portrait landscape", "how reports are turned; empty: as each needs it"),
        Text(kReportOwner, kLongText, "the organisation's name on reports"),
        Text(kReportAddress, kLongText, "its address"),
        Text(kReportLogo, kLongText, "the file of its logo"),
        Amount(kTrafPrice, 0, "price of a megabyte, base units"),
        PartOfMore(Number(kRangeNum, 50, "how many local address ranges there are")),
        Word(kDefMode,
             "0 1 2 4 5",
             "new users: 0 no control, 1 traffic, 2 pre-paid, 4 time, 5 both limits"),
        Number(kDefTrafficLimit, kAnyNumber, "new users: traffic limit, megabytes"),
        Number(kDefTimeLimit, kAnyNumber, "new users: time limit, hours"),
        Number(kDefAccPeriod, 2, "new users: period, 1 day, 2 month"),
        Flag(kDefBlocked, "new users are blocked"),
        Flag(kDefAuthReq, "new users must authenticate"),
        Flag(kViewUserHdr, "the user names are shown"),
        Flag(kViewWksHdr, "the workstations are shown"),
        Flag(kViewNameHdr, "the full names are shown"),
        Flag(kViewIPHdr, "the IP addresses are shown"),
        Flag(kViewMACHdr, "the MAC addresses are shown"),
        Flag(kViewGroupHdr, "the groups are shown"),
        Flag(kViewAccessHdr, "the access is shown"),
        Number(kUserHdrWidth, kAnyNumber, "width of the column, pixels"),
        Number(kWksHdrWidth, kAnyNumber, "width of the column, pixels"),
        Number(kNameHdrWidth, kAnyNumber, "width of the column, pixels"),
        Number(kIPHdrWidth, kAnyNumber, "width of the column, pixels"),
        Number(kMACHdrWidth, kAnyNumber, "width of the column, pixels"),
        Number(kGroupHdrWidth, kAnyNumber, "width of the column, pixels"),
        Number(kAccessHdrWidth, kAnyNumber, "width of the column, pixels"),
        PartOfMore(Text(kBoundNic, kLongText, "adapter to which the service is bound")),
        PartOfMore(Text(kCaptureExport, kLongText, "the capture driver's binding")),
    };
    return rules;
}

QString FullNameOf(const TextValue &value)
{
    return PrefixOf(value.key) + QString::fromLatin1(value.name);
}

const ValueRule *FindValueRule(const QString &name)
{
    const ValueRule *byOwnName = nullptr;
    int bearers = 0;
    for (const ValueRule &rule : AllValueRules()) {
        if (FullNameOf(rule.value).compare(name, Qt::CaseInsensitive) == 0) {
            return &rule;
        }
        if (name.compare(QLatin1StringView(rule.value.name), Qt::CaseInsensitive) == 0) {
            byOwnName = &rule;
            ++bearers;
        }
    }
    return bearers == 1 ? byOwnName : nullptr;
}

std::optional<QString> CheckValue(const ValueRule &rule, const QString &text)
{
    return Fits(rule, text) ? std::nullopt : std::optional(ExpectationOf(rule));
}
