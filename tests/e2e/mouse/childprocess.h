#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// How a child goes when this process ends without having ended it.
enum class ChildEnd {
    Terminated, ///< asked to end, so that it can tidy up
    Killed
};

/// Starts \a program with \a arguments in \a child. It does not outlive this process, however that ends.
/// Throws `Trouble` when it cannot be started.
void startchild(QProcess& child, ChildEnd end, const QString& program, const QStringList& arguments = {});

/// Whether \a child still runs. Needs no event loop.
bool childruns(QProcess& child);

/// Asks \a child to end and waits for it; one that does not listen is killed.
void endchild(QProcess& child);
