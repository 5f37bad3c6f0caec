#pragma once

#include <QString>

class User;

/// Carries out one line of the commands that `commandlist` tells of: words parted by blanks, quoted with "
/// where a word holds some. An empty line, and one that begins with #, does nothing. Throws `Trouble` when
/// there is no such command, its words do not fit, or its effect does not come.
void carryout(User& user, const QString& line);

/// The commands with their words, one on a line.
QString commandlist();
