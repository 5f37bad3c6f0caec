#include "textfile.h"

#include "bounds.h"
#include "readfile.h"

#include <QFile>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace {

/// Whether everything that was written to \a file has arrived on the disk, which may be somewhere else.
bool arrived(QFileDevice* file)
{
    if (!file->flush())
        return false;
#ifdef Q_OS_UNIX
    // Some systems of files cannot be asked.
    return ::fsync(file->handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
#else
    return true;
#endif
}

/// Puts \a bytes in the place of what \a file holds. What is there already is overwritten, not given up
/// first: on a full disk nothing else could be written in its place.
bool overwrite(QFile* file, const QByteArray& bytes)
{
    return file->seek(0) && file->write(bytes) == bytes.size() && file->resize(bytes.size()) && arrived(file);
}

/// Writes into the file itself; what it held is put back when that fails.
bool writeinplace(const QString& path, const QByteArray& bytes)
{
    // Without a copy there would be no way back.
    const auto earlier = readregularfile(path, maxKeptFile);
    QFile file(path);
    if (!earlier || !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return false;
    if (overwrite(&file, bytes))
        return true;
    overwrite(&file, *earlier);
    return false;
}

} // namespace

bool writetextfile(const QString& path, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    QSaveFile file(path);
    // In a folder that takes no new files an existing one may still be writable.
    if (!file.open(QIODevice::WriteOnly))
        return writeinplace(path, bytes);
    // The commit does not notice when what is still buffered no longer fits on the disk, or when the disk
    // says so only once it is asked; the short file would replace the whole one.
    if (file.write(bytes) != bytes.size() || !arrived(&file))
        file.cancelWriting();
    return file.commit();
}
