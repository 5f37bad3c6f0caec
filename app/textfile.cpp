#include "textfile.h"

#include <QSaveFile>

bool writetextfile(const QString& path, const QString& text)
{
    QSaveFile file(path);
    // In a folder that takes no new files an existing one may still be writable.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(text.toUtf8());
    return file.commit();
}
