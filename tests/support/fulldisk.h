#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// A disk on which no file can grow beyond \a bytes, for as long as the object lives.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        // Writing too much then fails like on a full disk, where it would otherwise end the program.
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        if (getrlimit(RLIMIT_FSIZE, &m_before) != 0)
            qFatal("Cannot read the limit of file sizes");
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
            qFatal("Cannot limit file sizes");
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int) = SIG_DFL;
};
