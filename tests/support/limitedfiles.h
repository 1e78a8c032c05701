#pragma once

#include <csignal>
#include <sys/resource.h>

/// A full disk, as long as it lives: no file can grow beyond so many bytes, and a write that would is short or fails.
class LimitedFiles {
public:
    explicit LimitedFiles(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~LimitedFiles()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    LimitedFiles(const LimitedFiles &) = delete;
    LimitedFiles &operator=(const LimitedFiles &) = delete;

private:
    void (*const m_handler)(int);
    rlimit m_before = {};
};
