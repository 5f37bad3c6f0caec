#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What a script has said and done.
struct Outcome
{
    int code = -1;
    QByteArray output;
    QByteArray errors;
    /// The calls of the stand-ins in their order, each with its arguments: "cmake --build …".
    QStringList calls;

    /// Whether a call begins with \a words.
    bool called(const QString& words) const;
};

/// A copy of the project's scripts in a folder of its own, with folders in the place of the code. The only
/// tools that the scripts find in it are those of every system and the stand-ins; so nothing is configured,
/// built or installed, and a script that calls anything else fails.
class Checkout
{
public:
    /// With stand-ins for what builds and installs: cmake makes a program that prints "started", where there
    /// is none yet; all packages are there; the disk has room.
    Checkout();

    /// \a relative inside the copy.
    QString path(const QString& relative = QString()) const;
    /// \a relative beside the copy.
    QString beside(const QString& relative) const { return m_folder.filePath(relative); }

    /// Puts a stand-in in the place of a tool: a script of \a lines, whose calls are recorded.
    void standin(const QString& tool, const QByteArray& lines) const;
    /// Takes a tool away, stand-in or not.
    void without(const QString& tool) const;
    /// A disk with \a megabytes left.
    void leave(int megabytes) const;
    /// Sets a variable of the environment in which the scripts run.
    void set(const QString& variable, const QString& value) { m_environment.insert(variable, value); }
    void unset(const QString& variable) { m_environment.remove(variable); }

    /// Runs \a words, a script of the copy ("./run") or any command, in the copy or in \a folder.
    Outcome run(const QStringList& words = {QStringLiteral("./run")},
                const QString& folder = QString()) const;

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
};
