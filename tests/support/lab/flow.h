// Datagrams in both directions for as long as it lives.
#pragma once

#include "support/lab/traffic.h"

#include <atomic>
#include <chrono>
#include <thread>

class Flow
{
public:
    static constexpr int kPayload = 100; // bytes of each datagram

    // Between a workstation and a host of the Internet, with a pause behind each five of either way.
    Flow(const Laboratory &laboratory,
         const QString &here,
         const QString &there,
         std::chrono::microseconds pause = {})
        : source(MakeSocket(laboratory, Place::Workstations, Transport::Udp, {here, kPort}))
        , target(MakeSocket(laboratory, Place::Internet, Transport::Udp, {there, kPort}))
        , thread([this, here, there, pause] {
            while (!stop) {
                sent += SendDatagrams(source, {there, kPort}, kPayload, 5);
                received += SendDatagrams(target, {here, kPort}, kPayload, 5);
                std::this_thread::sleep_for(pause);
            }
        })
    {
        while (sent == 0 || received == 0) { // both ways work
            std::this_thread::yield();
        }
    }
    ~Flow() { Stop(); }
    Flow(const Flow &) = delete;
    Flow &operator=(const Flow &) = delete;

    void Stop()
    {
        stop = true;
        if (thread.joinable()) {
            thread.join();
        }
    }

    // Datagrams so far.
    std::atomic<int> sent = 0;
    std::atomic<int> received = 0;

private:
    static constexpr quint16 kPort = 4000;

    OpenFile source;
    OpenFile target;
    std::atomic<bool> stop = false;
    std::thread thread;
};
