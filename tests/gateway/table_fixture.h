// A kernel table in a laboratory, begun with a policy for 10.77.0.0/16 behind lan0.
#pragma once

#include "gateway/kernel_table.h"
#include "support/lab/traffic.h"

#include <gtest/gtest.h>
#include <iostream>

class TableTest : public testing::Test
{
protected:
    static constexpr quint16 kPort = 4000;

    static inline const QString kHere = QStringLiteral("10.77.0.1"); // the first workstation
    static inline const QString kThere = QStringLiteral("10.79.0.1"); // a host of the Internet
    static inline const QString kHere6 = QStringLiteral("fd77::1");
    static inline const QString kThere6 = QStringLiteral("fd79::1");

    // One laboratory for all tests of the program.
    static const tl::expected<std::unique_ptr<Laboratory>, QString> &Made()
    {
        static const tl::expected<std::unique_ptr<Laboratory>, QString> made = Laboratory::Make();
        return made;
    }

    void SetUp() override
    {
        if (!Made()) {
            GTEST_SKIP() << "NOT TESTED: " << Made().error().toStdString();
        }
        policy.network.lanInterfaces = {QStringLiteral("lan0")};
        policy.network.local = {{0x0A4D0000, 0xFFFF0000}};
        Open();
    }

    void TearDown() override
    {
        if (table) {
            EXPECT_TRUE(table->Remove());
        }
    }

    [[nodiscard]] static const Laboratory &Lab() { return **Made(); }

    // As a process that starts, also after another one was killed.
    void Open()
    {
        auto opened = KernelTable::Open();
        ASSERT_TRUE(opened) << opened.error().text.toStdString();
        table = std::move(*opened);
    }

    [[nodiscard]] static NetAddress Address(const QString &text)
    {
        return NetAddress::From(text).value();
    }

    ClientRules &AddClient(quint32 id, const QStringList &addresses)
    {
        ClientRules &client = policy.clients[id];
        for (const QString &address : addresses) {
            client.addresses.push_back(Address(address));
        }
        return client;
    }

    Began Begin()
    {
        const GatewayResult<Began> began = table->Begin(policy);
        EXPECT_TRUE(began) << TextOf(began);
        return began.value_or(Began());
    }

    void Apply()
    {
        const GatewayResult<void> applied = table->Apply(policy);
        EXPECT_TRUE(applied) << TextOf(applied);
    }

    [[nodiscard]] Reading Read()
    {
        const GatewayResult<Reading> reading = table->Read();
        EXPECT_TRUE(reading) << TextOf(reading);
        return reading.value_or(Reading());
    }

    // The counters of a known address; {0, 0} of any other.
    [[nodiscard]] AddressReading Counted(const QString &address)
    {
        return In(Read().clients, address);
    }

    [[nodiscard]] UnknownReading CountedUnknown(const QString &address)
    {
        return In(Read().unknown, address);
    }

    template <typename Line>
    [[nodiscard]] static Line In(const std::vector<Line> &lines, const QString &address)
    {
        const auto found = std::ranges::find(lines, Address(address), &Line::address);
        return found == lines.end() ? Line {.address = Address(address)} : *found;
    }

    template <typename Value>
    [[nodiscard]] static std::string TextOf(const GatewayResult<Value> &result)
    {
        return result ? std::string() : result.error().text.toStdString();
    }

    // Datagrams from a workstation into the Internet; how many came.
    int Send(const QString &from, const QString &to, int bytes, int count)
    {
        const auto target = MakeSocket(Lab(), Place::Internet, Transport::Udp, {to, kPort});
        const auto source = MakeSocket(Lab(), Place::Workstations, Transport::Udp, {from, kPort});
        SendDatagrams(source, {to, kPort}, bytes, count);
        return TakeDatagrams(target, count);
    }

    // And from the Internet to a workstation.
    int Receive(const QString &to, const QString &from, int bytes, int count)
    {
        const auto target = MakeSocket(Lab(), Place::Workstations, Transport::Udp, {to, kPort});
        const auto source = MakeSocket(Lab(), Place::Internet, Transport::Udp, {from, kPort});
        SendDatagrams(source, {to, kPort}, bytes, count);
        return TakeDatagrams(target, count);
    }

    Policy policy;
    std::unique_ptr<KernelTable> table;
};
