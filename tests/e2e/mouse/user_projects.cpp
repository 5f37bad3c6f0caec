// The user at projects.

#include "user.h"

#include <QFileInfo>

void User::saveproject(const QString& name, Earlier earlier)
{
    filemenu(QStringLiteral("Save Project"));
    typefile(QStringLiteral("Save your Lumipad Project"), home().project(name));
    confirm(earlier);
    awaitbox(QStringLiteral("The message that the project is saved"), 1);
    answerbox(1);
    if (QFileInfo(home().project(name)).size() == 0)
        giveup(QStringLiteral("The project %1 was not saved.").arg(name));
}

void User::loadproject(const QString& name, Output output, Earlier earlier)
{
    filemenu(QStringLiteral("Load Project"));
    if (earlier == Earlier::Replaced) {
        awaitbox(QStringLiteral("The question whether to load a project"), 3);
        pressbutton(1);
    }
    typefile(QStringLiteral("Select a Lumipad Project"), home().project(name));
    focusmain();
    awaitoutput(output);
    settle();
}
