#include "readfile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX
/// Opened first and looked at then: by its name, a file can be another one a moment later. Opening a pipe
/// does not wait for its writer this way.
bool openregular(QFile* file)
{
    const QByteArray name = QFile::encodeName(file->fileName());
    if (name.contains('\0'))
        return false;
    const int handle = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (handle < 0)
        return false;
    struct stat status
    {
    };
    if (::fstat(handle, &status) != 0 || !S_ISREG(status.st_mode) ||
        !file->open(handle, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        ::close(handle);
        return false;
    }
    return true;
}
#endif

bool open(QFile* file)
{
#ifdef Q_OS_UNIX
    if (!file->fileName().startsWith(QLatin1String(":/")))
        return openregular(file);
#endif
    return QFileInfo(*file).isFile() && file->open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

} // namespace

std::optional<QByteArray> readregularfile(const QString& path, int most, int* read)
{
    int none = 0;
    int& total = read ? *read : none;
    total = 0;
    QFile file(path);
    if (!open(&file))
        return std::nullopt;
    // The size alone would not do: files of the system say 0, and any file can grow meanwhile.
    if (file.size() > most)
        return std::nullopt;
    QByteArray bytes;
    QByteArray piece(64 * 1024, Qt::Uninitialized);
    qint64 count = 0;
    while ((count = file.read(piece.data(), std::min<qint64>(piece.size(), qint64(most) + 1 - total))) > 0) {
        bytes.append(piece.constData(), static_cast<int>(count));
        total = static_cast<int>(bytes.size());
        if (total > most)
            return std::nullopt;
    }
    if (count < 0)
        return std::nullopt;
    return bytes;
}
