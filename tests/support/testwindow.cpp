#include "testwindow.h"

#include "devices.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QTest>

namespace {

QList<Record> builtindevices()
{
    // Read once: tests have as many windows as they have cases.
    static const QList<Record> devices =
        controller::readdefaultmappers(QStringLiteral(":/mappings/Mappings")).devices;
    return devices;
}

} // namespace

int devicecount() { return int(builtindevices().size()); }

int devicerow(const QString& id)
{
    const int row = controller::getdeviceindex(builtindevices(), id);
    if (row < 0)
        qFatal("There is no device %s", qPrintable(id));
    return row;
}

TestWindow::TestWindow()
{
    auto* combo = child<QComboBox>("devicescombo");
    if (currentDevice != 0 || combo->currentIndex() != 0 || combo->count() != devicecount())
        qFatal("The window does not start with the first of the devices");
    combo->setCurrentIndex(devicerow(QStringLiteral("APCMINI")));
}

bool TestWindow::showready()
{
    show();
    activateWindow();
    return QTest::qWaitForWindowActive(this) && QTest::qWaitForWindowExposed(this);
}

void TestWindow::closeEvent(QCloseEvent* event)
{
    ++closeRequests;
    MainWindow::closeEvent(event);
    if (event->isAccepted())
        ++closesAccepted;
}
