#include "home.h"

#include "trouble.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace {

/// Copies the folder \a from with all that is in it to \a to. False when the disk does not take it.
bool copyfolder(const QString& from, const QString& to)
{
    bool copied = QDir().mkpath(to);
    QDirIterator entry(from, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (copied && entry.hasNext()) {
        entry.next();
        const QString target = to + QLatin1Char('/') + QDir(from).relativeFilePath(entry.filePath());
        if (entry.fileInfo().isDir())
            copied = QDir().mkpath(target);
        else
            copied = QDir().mkpath(QFileInfo(target).path()) && QFile::copy(entry.filePath(), target);
    }
    return copied;
}

} // namespace

Home::Home(const QString& show)
    : m_folder(QDir::tempPath() + QStringLiteral("/lumipad.XXXXXX")),
      m_hoursbehind(QDateTime::currentDateTimeUtc().time().hour() - 12),
      m_timezone(QStringLiteral("NOON%1").arg(m_hoursbehind))
{
    if (!QFileInfo::exists(show + QStringLiteral("/Live/live.ini")))
        throw Trouble(QStringLiteral("%1 holds no Live/live.ini, so there is no show to load.").arg(show));
    bool made = m_folder.isValid();
    for (const char* folder : {"Documents/VirtualDJ/Pads", "Documents/VirtualDJ/Mappers", ".config", ".run"})
        made = made && QDir().mkpath(path(folder));
    made = made &&
           QFile::setPermissions(runtimefolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (!made || !copyfolder(show, showfolder(QFileInfo(show).fileName())))
        throw Trouble(QStringLiteral("A home folder cannot be made in %1.").arg(QDir::tempPath()));
}

QString Home::path(const QString& relative) const
{
    const QString home = m_folder.filePath(QStringLiteral("home"));
    return relative.isEmpty() ? home : home + QLatin1Char('/') + relative;
}

QString Home::showfolder(const QString& name) const
{
    return path(QStringLiteral("TheLightingController/LightShows/") + name);
}

QString Home::page(const QString& name) const
{
    return path(QStringLiteral("Documents/VirtualDJ/Pads/%1.xml").arg(name));
}

QString Home::mapper(const QString& device, const QString& name) const
{
    return path(QStringLiteral("Documents/VirtualDJ/Mappers/%1 - %2 mapping.xml").arg(device, name));
}

QString Home::project(const QString& name) const
{
    return path(QStringLiteral("Documents/Lumipad/projects/%1.os2l").arg(name));
}

QDate Home::today() const
{
    return QDateTime::currentDateTimeUtc().addSecs(qint64(-3600) * m_hoursbehind).date();
}
