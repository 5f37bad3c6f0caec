#pragma once

#include <QDate>
#include <QString>
#include <QTemporaryDir>

/// A home folder for one story, with the folders that VirtualDJ makes and one light show where the lighting
/// program keeps it. It is gone with the object.
class Home
{
public:
    /// Makes the folder with a copy of the show in the folder \a show. Throws `Trouble` when that holds no
    /// Live/live.ini or the disk does not take it.
    explicit Home(const QString& show);

    /// The home folder, or \a relative inside it.
    QString path(const QString& relative = QString()) const;
    /// The folder in which sessions keep their sockets.
    QString runtimefolder() const { return path(QStringLiteral(".run")); }
    /// Where the output of the program goes; outside of the home folder.
    QString logfile() const { return m_folder.filePath(QStringLiteral("lumipad.log")); }

    /// The folder of the light show of this name.
    QString showfolder(const QString& name) const;
    /// The pads page of this name.
    QString page(const QString& name) const;
    /// The mapping of this name for the controller \a device.
    QString mapper(const QString& device, const QString& name) const;
    /// The project of this name.
    QString project(const QString& name) const;

    /// A time zone for the variable TZ in which it was about noon when the home was made: written files hold
    /// the date, and no story goes over midnight there.
    QString timezone() const { return m_timezone; }
    /// The date in that time zone.
    QDate today() const;

private:
    QTemporaryDir m_folder;
    int m_hoursbehind; ///< of universal time
    QString m_timezone;
};
