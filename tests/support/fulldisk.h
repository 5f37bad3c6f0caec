#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// A disk on which no file can grow beyond \a bytes, for as long as the object lives.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes);
    ~FullDisk();
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int) = SIG_DFL;
};
