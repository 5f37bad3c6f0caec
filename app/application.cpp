#include "application.h"

#include "version.h"

#include <QGuiApplication>

void nameapplication()
{
    QGuiApplication::setApplicationVersion(QLatin1String(programVersion));
    QGuiApplication::setDesktopFileName(QStringLiteral("lumipad"));
}
