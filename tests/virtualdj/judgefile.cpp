// virtualdj_judge FILE EXPECTATION: judges a file that Lumipad has written by what is written down in JSON
// about it, and ends with 0 when nothing is wrong with it.

#include "judge.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTextStream>

#include <utility>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        qFatal("It is called with a file and the expectation of it.");
    VirtualDj::Judge judge;
    judge.file(VirtualDj::bytesof(arguments.at(1)),
               VirtualDj::readexpectation(VirtualDj::bytesof(arguments.at(2)), QStringLiteral(LAYOUTS_DIR),
                                          QFileInfo(arguments.at(2)).absolutePath()));
    QTextStream out(stdout);
    for (const QString& complaint : std::as_const(judge.complaints))
        out << complaint << '\n';
    out << judge.summary() << '\n';
    return judge.complaints.isEmpty() ? 0 : 1;
}
