// A disk that is full for one program.
#pragma once

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

// Lets this program's files grow to so many bytes only, which writing tells of as a full disk does.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : previous(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
        const rlimit tiny {bytes, old.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, previous);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    void (*previous)(int);
    rlimit old {};
};
