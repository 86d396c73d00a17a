// The chains and rules of the table: one way of a packet through it, for all clients.
#pragma once

#include "gateway/netlink_writer.h"
#include "gateway/packet_way.h"

#include <vector>

// First and last address of a range.
struct Ipv4Range
{
    Ipv4 first = 0;
    Ipv4 last = 0;

    bool operator==(const Ipv4Range &) const = default;
};

// The addresses of all masks without gaps, sorted, each address in one range only.
[[nodiscard]] std::vector<Ipv4Range> MergedRanges(const std::vector<Ipv4Mask> &masks);

// Whether the mask's set bits are all before its clear ones.
[[nodiscard]] bool IsContiguous(Ipv4 mask);

// Messages that make the table, with a text that `list table` shows, and its sets. What stands already stays.
void MakeTable(NetlinkWriter &writer, const QByteArray &comment);

// Messages that make the chains that verdicts name, without rules and without a hook: nothing passes them.
void MakeChains(NetlinkWriter &writer);

// Messages that replace all rules and ranges by these, and hook them in.
void MakeRules(NetlinkWriter &writer, const TableRules &rules);
