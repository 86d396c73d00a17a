// What twelve workstations send and receive, as packets of a laboratory, until it goes.
#pragma once

#include "support/lab/traffic.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

class LabTraffic
{
public:
    // `laboratory` outlives this.
    explicit LabTraffic(const Laboratory &laboratory);
    ~LabTraffic();
    LabTraffic(const LabTraffic &) = delete;
    LabTraffic &operator=(const LabTraffic &) = delete;

private:
    void Run();
    void SendOf(size_t place, std::chrono::seconds sinceBegin) const;

    std::vector<OpenFile> workstations; // as kLabUsers
    OpenFile internet;
    std::atomic<bool> stop = false;
    std::thread thread;
};
