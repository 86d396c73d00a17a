#include "gateway/packet_wait.h"

#include <chrono>
#include <linux/membarrier.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

void WaitForPacketsOnTheWay()
{
    using namespace std::chrono_literals;
    // The kernel's own wait for everybody who still reads the old rules.
    if (syscall(SYS_membarrier, MEMBARRIER_CMD_GLOBAL, 0, 0) != 0) {
        std::this_thread::sleep_for(20ms);
    }
}
