#include "support/lab/laboratory.h"

#include "support/lab/links.h"

#include <QFile>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <linux/capability.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *kOwnNamespace = "/proc/thread-self/ns/net";

OpenFile PresentNamespace()
{
    return OpenFile(open(kOwnNamespace, O_RDONLY | O_CLOEXEC));
}

bool WriteFile(const QString &path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        && file.write(text) == text.size();
}

QString Refused(const QString &what)
{
    return u"The kernel refuses "_s + what + u": "_s + QString::fromLocal8Bit(std::strerror(errno));
}

// Programs that are started keep the right to administer the network, whoever runs them. Accounts keep
// their numbers in a user namespace, since a message bus asks for them.
bool HandOnRights()
{
    if (geteuid() == 0) {
        return true; // whose programs have all rights anyway
    }
    __user_cap_header_struct header {.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> rights {};
    if (syscall(SYS_capget, &header, rights.data()) != 0) {
        return false;
    }
    rights[0].inheritable |= 1U << CAP_NET_ADMIN;
    return syscall(SYS_capset, &header, rights.data()) == 0
        && prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_RAISE, CAP_NET_ADMIN, 0, 0) == 0;
}

QString EnterUserNamespace()
{
    const QByteArray user = QByteArray::number(geteuid());
    const QByteArray group = QByteArray::number(getegid());
    if (unshare(CLONE_NEWUSER) != 0) {
        return Refused(u"a user namespace"_s);
    }
    if (!WriteFile(u"/proc/self/setgroups"_s, "deny")
        || !WriteFile(u"/proc/self/uid_map"_s, user + ' ' + user + " 1\n")
        || !WriteFile(u"/proc/self/gid_map"_s, group + ' ' + group + " 1\n")) {
        return Refused(u"the names of a user namespace"_s);
    }
    return HandOnRights() ? QString() : Refused(u"the rights of a user namespace"_s);
}

bool IsRunning(const char *interface)
{
    const OpenFile any(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    ifreq request {};
    std::strncpy(request.ifr_name, interface, IFNAMSIZ - 1);
    return ioctl(any.Number(), SIOCGIFFLAGS, &request) == 0
        && (request.ifr_flags & IFF_RUNNING) != 0;
}

QString TextOf(const GatewayResult<void> &result)
{
    return result ? QString() : result.error().text;
}

} // namespace

OpenFile::OpenFile(OpenFile &&other) noexcept : file(std::exchange(other.file, -1)) { }

OpenFile &OpenFile::operator=(OpenFile &&other) noexcept
{
    std::swap(file, other.file);
    return *this;
}

OpenFile::~OpenFile()
{
    if (file >= 0) {
        close(file);
    }
}

tl::expected<std::unique_ptr<Laboratory>, QString> Laboratory::Make()
{
    static bool entered =
        false; // a second user namespace would have no rights in the first one's networks
    if (!entered
        && (geteuid() != 0 || qEnvironmentVariableIntValue("TB_LAB_USER_NAMESPACE") != 0)) {
        if (const QString refused = EnterUserNamespace(); !refused.isEmpty()) {
            return tl::unexpected(refused);
        }
        entered = true;
    }
    std::unique_ptr<Laboratory> made(new Laboratory);
    QString refused = made->MakeNamespaces();
    if (refused.isEmpty()) {
        refused = made->SetUpGateway();
    }
    if (refused.isEmpty()) {
        refused = made->SetUpEnd(Place::Workstations, u"76"_s);
    }
    if (refused.isEmpty()) {
        refused = made->SetUpEnd(Place::Internet, u"78"_s);
    }
    if (refused.isEmpty()) {
        refused = made->WaitForLinks();
    }
    if (!refused.isEmpty()) {
        return tl::unexpected(refused);
    }
    return made;
}

QString Laboratory::MakeNamespaces()
{
    for (const Place place : {Place::Workstations, Place::Internet, Place::Gateway}) {
        if (unshare(CLONE_NEWNET) != 0) {
            return Refused(u"a network namespace"_s);
        }
        namespaces[static_cast<size_t>(place)] = PresentNamespace();
        // Without these an interface's IPv6 is of no use for its first second or two.
        // A hardware address that changes is told to the neighbours, and nothing else is told unasked.
        for (const auto &[setting, value] : {
                 std::pair(u"ipv6/conf/default/accept_dad"_s, u"0"_s),
                 {u"ipv6/conf/default/router_solicitations"_s, u"0"_s},
                 {u"ipv6/conf/default/ndisc_notify"_s, u"1"_s},
                 {u"ipv6/conf/default/mldv2_unsolicited_report_interval"_s, u"100000000"_s},
                 {u"ipv4/conf/default/arp_notify"_s, u"1"_s},
             }) {
            if (!Set(setting, value)) {
                return Refused(u"the setting "_s + setting);
            }
        }
    }
    return {};
}

QString Laboratory::SetUpGateway() const
{
    GatewayResult<Links> links = Links::Open();
    if (!links) {
        return links.error().text;
    }
    const bool forwards =
        Set(u"ipv4/ip_forward"_s, u"1"_s) && Set(u"ipv6/conf/all/forwarding"_s, u"1"_s);
    if (!forwards) {
        return Refused(u"forwarding"_s);
    }
    return TextOf(
        links->SetUp(u"lo"_s)
            .and_then([&] {
                return links->AddPair(u"lan0"_s, u"eth0"_s, NamespaceOf(Place::Workstations));
            })
            .and_then(
                [&] { return links->AddPair(u"wan0"_s, u"eth0"_s, NamespaceOf(Place::Internet)); })
            .and_then([&] { return links->AddAddress(u"lan0"_s, u"10.76.0.1"_s, 24); })
            .and_then([&] { return links->AddAddress(u"lan0"_s, u"fd76::1"_s, 64); })
            .and_then([&] { return links->AddAddress(u"wan0"_s, u"10.78.0.1"_s, 24); })
            .and_then([&] { return links->AddAddress(u"wan0"_s, u"fd78::1"_s, 64); })
            .and_then([&] { return links->SetUp(u"lan0"_s); })
            .and_then([&] { return links->SetUp(u"wan0"_s); })
            .and_then([&] { return links->AddRoute(u"10.77.0.0"_s, 16, u"10.76.0.2"_s); })
            .and_then([&] { return links->AddRoute(u"fd77::"_s, 64, u"fd76::2"_s); })
            .and_then([&] { return links->AddRoute(u"10.79.0.0"_s, 16, u"10.78.0.2"_s); })
            .and_then([&] { return links->AddRoute(u"fd79::"_s, 64, u"fd78::2"_s); }));
}

QString Laboratory::SetUpEnd(Place place, const QString &network) const
{
    const Visit visit(*this, place);
    const QString own = network == u"76" ? u"77"_s : u"79"_s;
    GatewayResult<Links> links = Links::Open();
    if (!links) {
        return links.error().text;
    }
    return TextOf(
        links->SetUp(u"lo"_s)
            .and_then(
                [&] { return links->AddAddress(u"eth0"_s, u"10."_s + network + u".0.2", 24); })
            .and_then([&] { return links->AddAddress(u"eth0"_s, u"fd"_s + network + u"::2", 64); })
            .and_then([&] { return links->SetUp(u"eth0"_s); })
            .and_then([&] { return links->AddLocal(u"10."_s + own + u".0.0", 16); })
            .and_then([&] { return links->AddLocal(u"fd"_s + own + u"::", 64); })
            .and_then(
                [&] { return links->AddRoute(u"0.0.0.0"_s, 0, u"10."_s + network + u".0.1"); })
            .and_then([&] { return links->AddRoute(u"::"_s, 0, u"fd"_s + network + u"::1"); }));
}

QString Laboratory::WaitForLinks() const
{
    const std::pair<Place, const char *> links[] = {{Place::Workstations, "eth0"},
                                                    {Place::Gateway, "lan0"},
                                                    {Place::Gateway, "wan0"},
                                                    {Place::Internet, "eth0"}};
    for (const auto &[place, name] : links) {
        const Visit visit(*this, place);
        for (int wait = 0; !IsRunning(name); ++wait) {
            if (wait == 300) {
                return u"A link between network namespaces does not come up"_s;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        // Who was found once is not asked for again: a link counts that too.
        for (const QString &protocol : {u"ipv4"_s, u"ipv6"_s}) {
            const QString setting =
                protocol + u"/neigh/"_s + QString::fromLatin1(name) + u"/base_reachable_time_ms"_s;
            if (!Set(setting, u"100000000"_s)) {
                return Refused(u"the setting "_s + setting);
            }
        }
    }
    return {};
}

bool Laboratory::Set(const QString &name, const QString &value)
{
    return WriteFile(u"/proc/sys/net/"_s + name, value.toLatin1());
}

int Laboratory::NamespaceOf(Place place) const
{
    return namespaces[static_cast<size_t>(place)].Number();
}

Visit::Visit(const Laboratory &laboratory, Place place) : before(PresentNamespace())
{
    if (setns(laboratory.NamespaceOf(place), CLONE_NEWNET) != 0) {
        qFatal("The network namespace cannot be entered");
    }
}

Visit::~Visit()
{
    if (setns(before.Number(), CLONE_NEWNET) != 0) {
        qFatal("The network namespace cannot be left");
    }
}
