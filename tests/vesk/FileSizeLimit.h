#pragma once

#include <csignal>

#include <sys/resource.h>

/// Files of this process may not grow beyond that while it exists, as on a disk that is full.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit lower{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &lower);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before); }

private:
    rlimit before{};
};
