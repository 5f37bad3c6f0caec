#pragma once

#include <QFile>
#include <QString>

#ifdef Q_OS_LINUX
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>
#endif

/// A disk of \a kilobytes on the folder \a folder, which only this process sees, for as long as the object
/// lives. To be made before the process has a second thread.
class SmallDisk
{
public:
    SmallDisk(const QString& folder, int kilobytes) : m_folder(QFile::encodeName(folder))
    {
#ifdef Q_OS_LINUX
        const QByteArray size = "size=" + QByteArray::number(kilobytes) + "k";
        m_mounted = ownmounts() && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                    mount("none", m_folder.constData(), "tmpfs", 0, size.constData()) == 0;
#else
        Q_UNUSED(kilobytes)
#endif
    }
    ~SmallDisk()
    {
#ifdef Q_OS_LINUX
        if (m_mounted)
            umount2(m_folder.constData(), MNT_DETACH);
#endif
    }
    Q_DISABLE_COPY(SmallDisk)

    /// False where this machine lets nobody mount.
    bool ismounted() const { return m_mounted; }

private:
#ifdef Q_OS_LINUX
    static bool writeline(const char* path, const QByteArray& line)
    {
        QFile file(QString::fromLatin1(path));
        return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(line) == line.size();
    }
    /// Gives the process mounts of its own; an ordinary user needs users of its own for that.
    static bool ownmounts()
    {
        if (unshare(CLONE_NEWNS) == 0)
            return true;
        const QByteArray user = QByteArray::number(geteuid());
        const QByteArray group = QByteArray::number(getegid());
        return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
               writeline("/proc/self/uid_map", user + ' ' + user + " 1\n") &&
               writeline("/proc/self/setgroups", "deny") &&
               writeline("/proc/self/gid_map", group + ' ' + group + " 1\n");
    }
#endif

    QByteArray m_folder;
    bool m_mounted = false;
};
