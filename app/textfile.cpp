#include "textfile.h"

#include <QSaveFile>

bool writetextfile(const QString& path, const QString& text)
{
    QSaveFile file(path);
    // In a folder that takes no new files an existing one may still be writable.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = text.toUtf8();
    // The commit does not notice when what is still buffered no longer fits on the disk; the short file would
    // replace the whole one.
    if (file.write(bytes) != bytes.size() || !file.flush())
        file.cancelWriting();
    return file.commit();
}
