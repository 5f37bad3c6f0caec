#pragma once

#include <QString>
#include <QStringList>

/// What is wrong with the layout \a path of a controller and with the factory mapping that lies beside it
/// ("X.xml" and "X mapping.xml"): a sentence for each fault, which begins with the name of the file and the
/// line. Empty when the program can offer the controller as it is. Any files do, however broken.
QStringList layoutfaults(const QString& path);
