// lumipad_drive PROGRAM PICTURES SHOW: opens the real window on a display and in a home folder of its own,
// and works in it by mouse and keyboard as the commands say that stand on its standard input, one a line.
// PROGRAM is the program file of Lumipad, PICTURES a folder for what is saved, SHOW the folder of a light
// show that the home gets a copy of. Without arguments it lists the commands.
//
// It ends with 0 when all was done, or with 1 and a sentence on the error output at the first trouble.

#include "commands.h"
#include "trouble.h"
#include "user.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

/// Works through the lines of \a commands; throws `Trouble` that names the line.
void work(User& user, QIODevice& commands)
{
    user.open();
    for (int number = 1; !commands.atEnd(); ++number) {
        const QString line = QString::fromUtf8(commands.readLine()).trimmed();
        try {
            carryout(user, line);
        } catch (const Trouble& trouble) {
            throw Trouble(
                QStringLiteral("line %1, \"%2\": %3").arg(QString::number(number), line, trouble.sentence()));
        }
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    QTextStream err(stderr);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() != 3) {
        err << "lumipad_drive PROGRAM PICTURES SHOW reads commands from its standard input:\n"
            << commandlist();
        return 1;
    }
    try {
        User user(arguments.at(0), arguments.at(1), arguments.at(2));
        QFile commands;
        commands.open(stdin, QIODevice::ReadOnly);
        work(user, commands);
    } catch (const Trouble& trouble) {
        err << "lumipad_drive: " << trouble.sentence() << '\n';
        return 1;
    }
    return 0;
}
