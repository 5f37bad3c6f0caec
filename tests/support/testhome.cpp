#include "testhome.h"

#include <QDir>
#include <QFile>

TestHome::TestHome(Documents documents)
{
    setvariable("HOME", path());
    setvariable("XDG_CONFIG_HOME", path(QStringLiteral(".config")));
    setvariable("XDG_DATA_HOME", path(QStringLiteral(".local/share")));
    setvariable("XDG_CACHE_HOME", path(QStringLiteral(".cache")));
    if (documents == Documents::Present)
        QDir(path()).mkdir(QStringLiteral("Documents"));
}

TestHome::~TestHome()
{
    for (const auto& [name, value] : std::as_const(m_before)) {
        if (value.isNull())
            qunsetenv(name.constData());
        else
            qputenv(name.constData(), value);
    }
}

QString TestHome::path(const QString& relative) const
{
    return relative.isEmpty() ? m_folder.path() : m_folder.filePath(relative);
}

QString TestHome::makefolder(const QString& relative) const
{
    QDir(path()).mkpath(relative);
    return path(relative);
}

QString TestHome::makepadsfolder() const { return makefolder(QStringLiteral("Documents/VirtualDJ/Pads")); }

void TestHome::setvariable(const char* name, const QString& value)
{
    m_before.append({name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray()});
    qputenv(name, QFile::encodeName(value));
}
