#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>

namespace Tesk {

/// While it lives, no file of this process grows beyond the limit: writing on fails as it does on a
/// full disk.
class FileSizeLimit final
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &oldLimit);
        const rlimit limit{bytes, oldLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &oldLimit);
        std::signal(SIGXFSZ, oldHandler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit oldLimit{};
    void (*oldHandler)(int);
};

} // namespace Tesk
#endif
