#include "daemon/heap.h"

#include <malloc.h>

void heap::KeepSmall()
{
    constexpr int kLarge = 128 * 1024; // bytes; unless it is set, it grows with what is freed
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, kLarge);
}

void heap::GiveBack()
{
    malloc_trim(0);
}
