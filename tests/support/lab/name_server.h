// A name server at the gateway of a laboratory, at the address where the machine's programs look for one.
#pragma once

#include "support/lab/traffic.h"

#include <QByteArray>

#include <atomic>
#include <functional>
#include <thread>

class NameServer
{
public:
    // What is answered to a question for the name of an address: the labels of the name, or nothing. Called
    // in a thread of the server's own.
    using Names = std::function<QByteArrayList(const QByteArray &question)>;

    // Every answer whose question `garbles` says so of is random bytes, the same in each run.
    using Garbles = std::function<bool(const QByteArray &question)>;

    NameServer(const Laboratory &laboratory, Names names, Garbles garbles);
    ~NameServer();
    NameServer(const NameServer &) = delete;
    NameServer &operator=(const NameServer &) = delete;

    // Questions so far.
    [[nodiscard]] int Asked() const { return asked; }

private:
    void Answer();

    Names namesOf;
    Garbles isGarbled;
    OpenFile socket;
    std::atomic<int> asked = 0;
    std::atomic<bool> stop = false;
    std::thread thread;
};
