#include "story.h"

#include <memory>

namespace {

/// One controller: what the story does differently on it.
struct Device
{
    QString id;
    int palette;       ///< the number of its palette colours; 0 for RGB LEDs
    Cell sidebutton;   ///< one besides the one on the right
    Cell switchbutton; ///< the cell that ends as the switch
    QString name;
};

// The two-colour Launchpads have two controls on the cell 2, 2, and none on 3, 2.
const QVector<Device> devices = {
    {"APCMINI", 4, {11, 2}, {11, 9}, "Akai APC Mini"},
    {"NLMINIMK3", 0, {0, 2}, {9, 9}, "Novation Launchpad Mini MK3"},
    {"LAUNCHPADMINI", 16, {0, 2}, {9, 3}, "Novation Launchpad Mini"},
    {"LAUNCHPAD2", 0, {0, 9}, {9, 11}, "Novation Launchpad MKII"},
    {"LAUNCHPADPRO", 0, {2, 0}, {11, 9}, "Novation Launchpad PRO"},
    {"LAUNCHPADS", 16, {0, 9}, {0, 4}, "Novation Launchpad S"},
    {"LAUNCHPAD", 16, {0, 5}, {3, 2}, "Novation Launchpad"},
};

} // namespace

/// Every MIDI controller in turn in one window, by the mouse alone but for the names typed: Live Buttons
/// placed and moved, a colour, blink, the switch, and the mapper that VirtualDJ gets.
class ControllerStory : public QObject
{
    Q_OBJECT

private slots:
    void mapper_of_the_placed_buttons_is_exported_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < devices.size(); ++row)
            QTest::newRow(qPrintable(devices.at(row).id)) << row;
    }

    void mapper_of_the_placed_buttons_is_exported()
    {
        QFETCH(const int, row);
        Stories::tell([&] {
            const Device& device = devices.at(row);
            openwindow();
            choosedevice(device);
            placebuttons(device);
            changecolors(device);
            m_user->toggleblink({2, 2});
            // There is one switch at most: the second cell takes it from the first.
            m_user->setswitch({9, 2});
            m_user->setswitch(device.switchbutton);
            m_user->picturesettled(QStringLiteral("%1-%2").arg(row + 1).arg(device.id));

            m_user->exportmapper(device.name, "Night");
            const QString golden = QStringLiteral("mapper-%1.xml").arg(device.id.toLower());
            m_user->expectfile(m_user->home().mapper(device.name, "Night"),
                               Stories::goldenmapper(golden, m_user->home()));

            m_user->unsetswitch(device.switchbutton);
            m_user->click("cleanmidi_button");
            m_user->settle();
        });
    }

    void window_with_nothing_placed_any_more_is_closed_unasked()
    {
        Stories::tell([this] {
            openwindow();
            m_user->requestclose();
            m_user->awaitend(0);
        });
    }

    /// After a failure the next device gets a window of its own.
    void cleanup()
    {
        if (QTest::currentTestFailed())
            m_user.reset();
    }
    void cleanupTestCase() { m_user.reset(); }

private:
    /// The MIDI side with the show, unless it is open already.
    void openwindow()
    {
        if (m_user) {
            m_user->setpictures(Stories::freshpictures());
            return;
        }
        m_user = std::make_unique<StoryUser>();
        m_user->open();
        m_user->loadshow("Tricky Names");
        m_user->switchto(Output::Midi);
        m_user->filledit("padsname", "Night");
    }

    void choosedevice(const Device& device)
    {
        m_user->choosedevice(device.name);
        // The simple mapping comes first, the factory's second; the user has no other yet.
        m_user->chooseitem("mididevices", 2, 2);
    }

    void placebuttons(const Device& device)
    {
        m_user->dragtocell(1, {2, 2});
        m_user->dragtocell(2, {2, 11});
        m_user->dragtocell(3, device.sidebutton);
        m_user->dragtocell(5, {3, 3});
        m_user->dragcell({3, 3}, {5, 6});
        m_user->dragtocell(6, {9, 8});
    }

    void changecolors(const Device& device)
    {
        if (device.palette > 0) {
            m_user->setcolor({2, 2}, PadColor::On, 3, device.palette);
            m_user->setcolor({5, 6}, PadColor::Off, 2, device.palette);
        } else {
            m_user->askcolor({2, 2}, PadColor::On, "#12ab34");
            m_user->askcolor({5, 6}, PadColor::Off, "#200040");
        }
    }

    std::unique_ptr<StoryUser> m_user;
};

QTEST_GUILESS_MAIN(ControllerStory)
#include "tst_controller.moc"
