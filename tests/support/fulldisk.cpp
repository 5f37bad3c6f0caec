#include "fulldisk.h"

FullDisk::FullDisk(rlim_t bytes)
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

FullDisk::~FullDisk()
{
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
}
