// Every configuration value by name: key, spelling, kind and meaning stand here and nowhere else.
#pragma once

#include <array>

// The keys of the store. A path has one folder for each part; its last part names the file.
enum class ConfigKeyId {
    Base, // Software/Tollbrook/Network
    LocalIp, // Software/Tollbrook/Network/localip
    Price, // Software/Tollbrook/Network/Price
    DefProfile, // Software/Tollbrook/Network/DefProfile
    Ui, // Software/Tollbrook/Network/UI
    AdapterBind, // Software/Harrowmere/Tallyspring
    CaptureDriver // System/CurrentControlSet/Services/Packet/Linkage
};

// A value that holds text, nearly always a decimal number read the C way (missing counts as 0).
struct TextValue
{
    ConfigKeyId key;
    const char *name; // matched without regard to letter case
};

// A family of 32-bit numbers: the name followed by an index without leading zeros (net0, net1, ...).
struct NumberFamily
{
    ConfigKeyId key;
    const char *prefix;
};

namespace values {

using K = ConfigKeyId;

// Start-up.
inline constexpr TextValue kBillDsn {K::Base, "bill dsn"}; // data source of the shared database
inline constexpr TextValue kServiceDsn {K::Base, "ServiceDsn"}; // the service's; missing: bill dsn
inline constexpr TextValue kReportsDsn {K::Base, "ReportsDsn"}; // the reports'; missing: "bill"
inline constexpr TextValue kPort {K::Base, "port"}; // port number
inline constexpr TextValue kPath {K::Base, "path"}; // installation folder, ends in a separator
inline constexpr TextValue kFirstStart {K::Base,
                                        "FirstStart"}; // "1": the wizard runs at next start

// How long the database may keep the console waiting, seconds; 0 or missing: as usual.
inline constexpr TextValue kDbConnectTimeout {K::Base, "DbConnectTimeout"}; // 10
inline constexpr TextValue kDbAnswerTimeout {K::Base, "DbAnswerTimeout"}; // 30
inline constexpr TextValue kDbLockTimeout {K::Base, "DbLockTimeout"}; // 5

// Main window and lists.
inline constexpr TextValue kSortBy {K::Base, "SortBy"}; // 0 names, 1 workstations, 2 full names
inline constexpr TextValue kRefresh {K::Base,
                                     "refresh"}; // users list's first sort column; only read
inline constexpr TextValue kPaneAutoRefreshMode {K::Base, "PaneAutoRefreshMode"}; // 0 to 5
inline constexpr TextValue kPaneAutoRefreshPeriod {K::Base, "PaneAutoRefreshPeriod"}; // minutes
inline constexpr TextValue kViewUserHdr {K::Ui, "ViewUserHdr"}; // "0" hides the column
inline constexpr TextValue kViewWksHdr {K::Ui, "ViewWksHdr"};
inline constexpr TextValue kViewNameHdr {K::Ui, "ViewNameHdr"};
inline constexpr TextValue kViewIPHdr {K::Ui, "ViewIPHdr"};
inline constexpr TextValue kViewMACHdr {K::Ui, "ViewMACHdr"};
inline constexpr TextValue kViewGroupHdr {K::Ui, "ViewGroupHdr"};
inline constexpr TextValue kViewAccessHdr {K::Ui, "ViewAccessHdr"};
inline constexpr TextValue kUserHdrWidth {K::Ui, "UserHdrWidth"}; // pixels
inline constexpr TextValue kWksHdrWidth {K::Ui, "WksHdrWidth"};
inline constexpr TextValue kNameHdrWidth {K::Ui, "NameHdrWidth"};
inline constexpr TextValue kIPHdrWidth {K::Ui, "IPHdrWidth"};
inline constexpr TextValue kMACHdrWidth {K::Ui, "MACHdrWidth"};
inline constexpr TextValue kGroupHdrWidth {K::Ui, "GroupHdrWidth"};
inline constexpr TextValue kAccessHdrWidth {K::Ui, "AccessHdrWidth"};

// Read by the accounting service.
inline constexpr TextValue kTimer {K::Base, "timer"}; // database update period, seconds
inline constexpr TextValue kNic {K::Base, "NIC"}; // description of the chosen adapter
inline constexpr TextValue kIdentMode {K::Base, "IdentMode"}; // 0 IP, 1 MAC, 2 Windows user name
inline constexpr TextValue kControlMac {K::Base, "ControlMAC"}; // flag
// The global options sheet and the setup wizard write the same two values in spellings of their own.
inline constexpr TextValue kIdentModeGlobal {K::Base, "identmode"};
inline constexpr TextValue kControlMacGlobal {K::Base, "ControlMac"};
inline constexpr TextValue kAuthPort {K::Base, "AuthPort"}; // TCP port
inline constexpr TextValue kAuthReqNew {K::Base, "AuthReqNew"}; // flag
inline constexpr TextValue kAllowNotLogged {K::Base, "AllowNotLogged"}; // flag
inline constexpr TextValue kAllowNonHost {K::Base, "AllowNonHost"}; // flag
inline constexpr TextValue kUserviewEnabled {K::Base, "UserviewEnabled"}; // flag
inline constexpr TextValue kClientPwd {K::Base, "clientpwd"}; // deinstall password, plain text
inline constexpr TextValue kMonitorProtMode {K::Base, "monitorprotmode"}; // 0 to 3

// Read by the accounting service alone; nothing in the console writes them.
inline constexpr TextValue kGatewayId {K::Base, "GatewayId"}; // missing: the machine's own
inline constexpr TextValue kIdleGrace {K::Base, "IdleGrace"}; // seconds; missing: 300
inline constexpr TextValue kOnStop {K::Base, "OnStop"}; // "pass" or "keep"
inline constexpr TextValue kUnknownIpv6 {K::Base, "UnknownIPv6"}; // "refuse" or "pass"

// Currency and price.
inline constexpr TextValue kCurUse {K::Base, "curuse"}; // 0 none, 1 defined, 2 in use
inline constexpr TextValue kCurrencyName {K::Base, "currencyname"};
inline constexpr TextValue kCurrencySymbol {K::Base, "currencysymbol"};
inline constexpr TextValue kCurrencyRate {K::Base, "currencyrate"}; // currency per base unit
inline constexpr TextValue kTrafPrice {K::Price, "trafprice"}; // base units per megabyte

// Reports on paper.
inline constexpr TextValue kReportPaper {K::Base, "ReportPaper"}; // A4, A5, A3, Letter or Legal
inline constexpr TextValue kReportTurn {K::Base, "ReportTurn"}; // "portrait", "landscape" or empty
inline constexpr TextValue kReportOwner {K::Base, "ReportOwner"}; // the organisation's name
inline constexpr TextValue kReportAddress {K::Base, "ReportAddress"}; // in lines
inline constexpr TextValue kReportLogo {K::Base, "ReportLogo"}; // a picture's file

// Address ranges and exclusions.
inline constexpr TextValue kRangeNum {K::LocalIp, "rangenum"}; // how many ranges
inline constexpr NumberFamily kNet {K::LocalIp, "net"};
inline constexpr NumberFamily kMask {K::LocalIp, "mask"};
inline constexpr NumberFamily kExclude {K::LocalIp, "exclude"};
inline constexpr NumberFamily kExcludeWizard {K::LocalIp, "Exclude"}; // as the setup wizard writes

// The profile of a newly seen user; the codes are those of the users table.
inline constexpr TextValue kDefMode {K::DefProfile, "Mode"};
inline constexpr TextValue kDefTrafficLimit {K::DefProfile, "TrafficLimit"}; // megabytes
inline constexpr TextValue kDefTimeLimit {K::DefProfile, "TimeLimit"}; // hours
inline constexpr TextValue kDefAccPeriod {K::DefProfile, "AccPeriod"}; // 1 day, 2 month
inline constexpr TextValue kDefBlocked {K::DefProfile, "Blocked"}; // on only when 1
inline constexpr TextValue kDefAuthReq {K::DefProfile, "AuthReq"}; // on only when 1; only read

// Adapter binding.
inline constexpr TextValue kBoundNic {K::AdapterBind, "NIC"};
inline constexpr TextValue kCaptureExport {K::CaptureDriver, "Export"}; // capture driver's binding

// Every text value there is.
inline constexpr std::array kAllTexts {kBillDsn,
                                       kServiceDsn,
                                       kReportsDsn,
                                       kPort,
                                       kPath,
                                       kFirstStart,
                                       kDbConnectTimeout,
                                       kDbAnswerTimeout,
                                       kDbLockTimeout,
                                       kSortBy,
                                       kRefresh,
                                       kPaneAutoRefreshMode,
                                       kPaneAutoRefreshPeriod,
                                       kViewUserHdr,
                                       kViewWksHdr,
                                       kViewNameHdr,
                                       kViewIPHdr,
                                       kViewMACHdr,
                                       kViewGroupHdr,
                                       kViewAccessHdr,
                                       kUserHdrWidth,
                                       kWksHdrWidth,
                                       kNameHdrWidth,
                                       kIPHdrWidth,
                                       kMACHdrWidth,
                                       kGroupHdrWidth,
                                       kAccessHdrWidth,
                                       kTimer,
                                       kNic,
                                       kIdentMode,
                                       kControlMac,
                                       kAuthPort,
                                       kAuthReqNew,
                                       kAllowNotLogged,
                                       kAllowNonHost,
                                       kUserviewEnabled,
                                       kClientPwd,
                                       kMonitorProtMode,
                                       kGatewayId,
                                       kIdleGrace,
                                       kOnStop,
                                       kUnknownIpv6,
                                       kCurUse,
                                       kCurrencyName,
                                       kCurrencySymbol,
                                       kCurrencyRate,
                                       kTrafPrice,
                                       kReportPaper,
                                       kReportTurn,
                                       kReportOwner,
                                       kReportAddress,
                                       kReportLogo,
                                       kRangeNum,
                                       kDefMode,
                                       kDefTrafficLimit,
                                       kDefTimeLimit,
                                       kDefAccPeriod,
                                       kDefBlocked,
                                       kDefAuthReq,
                                       kBoundNic,
                                       kCaptureExport};

} // namespace values
