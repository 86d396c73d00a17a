// One rule of a chain as the kernel's own expressions. A rule ends at the first test that fails.
#pragma once

#include "gateway/netlink_writer.h"
#include "gateway/table_layout.h"

// Which end of a packet is the workstation: From its own packets, To those that come for it.
enum class Direction { From, To };
enum class End { Workstation, Internet };
enum class Side { In, Out }; // of the interfaces that a packet passes

class RuleWriter
{
public:
    RuleWriter(NetlinkWriter &target, const QByteArray &chain);
    ~RuleWriter(); // ends the rule
    RuleWriter(const RuleWriter &) = delete;
    RuleWriter &operator=(const RuleWriter &) = delete;

    // Counts the packets that come to the rule so far.
    RuleWriter &Counter();
    RuleWriter &Interface(Side side, const QString &name);
    RuleWriter &NotInterface(Side side, const QString &name);
    RuleWriter &IsFamily(Family family);
    // Holds for IPv6 and for IPv4 with options: the quickest test that leaves most of IPv4 out.
    RuleWriter &IsNotPlainIpv4();
    RuleWriter &Transport(quint8 protocol);
    RuleWriter &NotTransport(quint8 protocol);
    // The packet's port at an end; for TCP and UDP only.
    RuleWriter &Port(Direction direction, End end, quint16 port);
    RuleWriter &AddressMasked(Direction direction, End end, Ipv4 mask, Ipv4 network);

    // The address of an end is in a set, whose counter it raises; or in an interval set.
    RuleWriter &AddressIn(SetId set, Family family, Direction direction, End end);
    // The workstation's address with the Internet side's port, or with its hardware address.
    RuleWriter &PortPicked(Family family, Direction direction, bool picked);
    RuleWriter &HardwareDiffers(Family family);
    // Whether the Internet side's port is in the set of ports is as `isIn` says.
    RuleWriter &PortOf(const char *set, Direction direction, bool isIn);
    // Adds the workstation's address to a set; the rule ends here when the set is full.
    RuleWriter &Note(SetId set, Family family, Direction direction);
    RuleWriter &NotePair(Family family);

    // What the workstation's address says in the map, if it is there.
    void Follow(SetId map, Family family, Direction direction);
    // Drops the packet when it uses up the quota that the map names.
    void DropOverQuota(SetId map, Family family);
    void Accept();
    void Drop();
    void Goto(const QByteArray &chain);
    void Jump(const QByteArray &chain);
    void RejectByReset();
    void RejectByIcmp();

private:
    [[nodiscard]] size_t Open(const char *name);
    void Close(size_t expression);
    void Meta(quint32 key);
    void Payload(quint32 base, quint32 offset, quint32 length, quint32 toRegister);
    void Compare(NetlinkView value, bool equal = true);
    void Name(Side side, const QString &name, bool equal);
    void LoadAddress(Family family, Direction direction, End end);
    void LoadHardware(Family family);
    void Lookup(QByteArrayView set, bool inverted);
    void Update(SetId set, Family family);
    void Give(quint32 verdict, const QByteArray &chain = {});
    void Reject(quint32 type, quint8 code);

    NetlinkWriter &writer;
    size_t expressions;
    size_t open = 0; // where the expression's list entry starts
};
