// Why the kernel's side of the gateway could not do what it was asked for.
#pragma once

#include <QString>

#include <tl/expected.hpp>

struct GatewayFailure
{
    enum class Kind {
        NotPermitted, // the process lacks CAP_NET_ADMIN in its network namespace
        NotSupported, // the kernel lacks nftables or a part of it
        Refused, // by the kernel, for what was sent; nothing of that transaction was done
        Unreadable, // the answer was cut, garbled or lost
        TableLost, // the table does not stand, or another program has changed it: Begin again
    };

    Kind kind = Kind::Refused;
    QString text; // for people: what was tried, and the kernel's own words

    bool operator==(const GatewayFailure &) const = default;
};

template <typename Value>
using GatewayResult = tl::expected<Value, GatewayFailure>;
