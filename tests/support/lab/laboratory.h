// A gateway between workstations and the Internet, each a private network namespace of the kernel:
// real packets, and no effect on the machine. It needs no rights where the kernel lets anybody make
// a user namespace.
//
//   workstations                      gateway                         Internet
//   eth0 10.76.0.2, fd76::2 ------ lan0 10.76.0.1, fd76::1
//   all of 10.77.0.0/16, fd77::/64    wan0 10.78.0.1, fd78::1 ------ eth0 10.78.0.2, fd78::2
//                                                                     all of 10.79.0.0/16, fd79::/64
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <tl/expected.hpp>

enum class Place { Workstations, Gateway, Internet };

// An open file, closed with the object.
class OpenFile
{
public:
    OpenFile() = default;
    explicit OpenFile(int opened) : file(opened) { }
    OpenFile(OpenFile &&other) noexcept;
    OpenFile &operator=(OpenFile &&other) noexcept;
    ~OpenFile();

    [[nodiscard]] int Number() const { return file; }

private:
    int file = -1;
};

class Laboratory
{
public:
    // Makes the namespaces and leaves the calling thread in the gateway's. Before anything else in the
    // process makes a thread. Several may stand side by side, and know nothing of each other. Fails with a text for people where the kernel refuses. As root it uses a
    // user namespace only with TB_LAB_USER_NAMESPACE=1 in the environment. Programs that are started
    // from there on may administer the laboratory's network.
    [[nodiscard]] static tl::expected<std::unique_ptr<Laboratory>, QString> Make();

    // Writes a setting of /proc/sys/net in the present place.
    static bool Set(const QString &name, const QString &value);

    [[nodiscard]] int NamespaceOf(Place place) const;

private:
    Laboratory() = default;
    [[nodiscard]] QString MakeNamespaces();
    [[nodiscard]] QString SetUpGateway() const;
    [[nodiscard]] QString SetUpEnd(Place place, const QString &network) const;

    // A new link drops what is sent until the kernel has noticed that both ends are up.
    [[nodiscard]] QString WaitForLinks() const;

    std::array<OpenFile, 3> namespaces;
};

// The calling thread is in a place for as long as this lives: sockets that are made stay there.
class Visit
{
public:
    Visit(const Laboratory &laboratory, Place place);
    ~Visit();
    Visit(const Visit &) = delete;
    Visit &operator=(const Visit &) = delete;

private:
    OpenFile before;
};
