#include "application.h"

#include "toolkit.h"
#include "version.h"

#include <QGuiApplication>

void nameapplication()
{
    QGuiApplication::setApplicationVersion(QLatin1String(programVersion));
    QGuiApplication::setDesktopFileName(QStringLiteral("lumipad"));
}

void followscreenscale()
{
    drawatscreenscale();
    // A scale such as 1.25, rounded to a whole number, would leave the window too small for its texts, or too
    // big.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}
