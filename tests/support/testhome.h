#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <utility>

/// A temporary home folder, the user's for as long as the object lives; windows made meanwhile find their
/// folders in it. Homes may be nested: the earlier one comes back at the end.
class TestHome
{
public:
    enum class Documents { Present, Missing };

    explicit TestHome(Documents documents = Documents::Present);
    ~TestHome();
    Q_DISABLE_COPY(TestHome)

    /// The home folder, or \a relative inside it.
    QString path(const QString& relative = QString()) const;
    /// Creates the folder \a relative with all that lead to it, and gives its whole path.
    QString makefolder(const QString& relative) const;
    /// The folder that VirtualDJ would have made for its pads pages; the program never makes it.
    QString makepadsfolder() const;

private:
    void setvariable(const char* name, const QString& value);

    QTemporaryDir m_folder;
    QList<std::pair<QByteArray, QByteArray>> m_before;
};
