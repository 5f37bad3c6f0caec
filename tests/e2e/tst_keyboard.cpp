#include "story.h"

namespace {

/// A person without a mouse, who cannot point at what a step has done either: keys are handled in their
/// order, and the box or file at the end of each part shows what came of them.
class KeyboardUser : public StoryUser
{
public:
    void keys(const QString& key, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            keyboard().key(key);
    }

    /// Presses \a key in the message box that comes up and waits until that is gone.
    void answer(const QString& key)
    {
        ScreenWindow box;
        // The dialog before it may still be going.
        await(
            [&] {
                box = otherwindows().value(0);
                return box.exists() && isdrawn(box);
            },
            "The message was not drawn.");
        focus(box);
        keys(key);
        awaitgone(box, "The message");
    }

    /// Shows the MIDI side and goes to its devices; the keyboard is on the button that loads a show.
    void gotodevices()
    {
        keys("Tab", 3);
        keys("Right");
        awaitoutput(Output::Midi);
        keys("Tab");
    }

    /// Chooses a device, wherever it is listed; the keyboard is on their combo box. With another one than
    /// before it goes on in the grid.
    void choosedevicebykeys(const QString& name)
    {
        keys("Alt+Down");
        pickbykeys("devicescombo", devicenumber(name));
    }

    /// Opens the context menu of the current cell by \a key and chooses entry \a number of it, or entry \a
    /// color of the submenu that this opens.
    void choosefrommenu(const QString& key, int number, int color = 0)
    {
        keys(key);
        awaitmenus(1);
        keys("Down", number);
        if (color > 0) {
            keys("Right");
            awaitmenus(2);
            keys("Down", color - 1);
        }
        keys("Return");
        awaitalone("The menu");
    }

    void loadshowbykeys(const QString& name)
    {
        keys("Ctrl+O");
        typefile("Select a Show", home().showfolder(name));
        awaitalone("The folder dialog");
        focusmain();
        awaittitle("Lumipad - " + name);
    }

    /// Saves the shown side as the project file \a path.
    void savebykeys(const QString& path)
    {
        focusmain();
        keys("Ctrl+S");
        typefile("Save your Lumipad Project", path);
        answer("Return");
    }

    /// Saves over the project file \a path, which must come out as it is.
    void saveagainbykeys(const QString& path)
    {
        focusmain();
        keys("Ctrl+S");
        // With this dialog all that was asked before is done, so the file was read if it was to be loaded.
        awaitdialog("Save your Lumipad Project");
        const QByteArray saved = Stories::spoil(path);
        typefile("Save your Lumipad Project", path);
        answer("Alt+Y");
        answer("Return");
        expectfile(path, saved);
    }

    void loadprojectbykeys(const QString& path, Earlier earlier = Earlier::None)
    {
        focusmain();
        keys("Ctrl+Shift+O");
        if (earlier == Earlier::Replaced)
            answer("Alt+Y");
        typefile("Select a Lumipad Project", path);
        awaitalone("The dialog");
        focusmain();
    }

    void exportbykeys(Earlier earlier = Earlier::None)
    {
        keys("Ctrl+Shift+E");
        if (earlier == Earlier::Replaced)
            answer("Alt+Y");
        answer("Return");
    }

    /// Leaves the program, which has work, and makes sure that all was done without the mouse.
    void leave()
    {
        focusmain();
        keys("Ctrl+Q");
        answer("Alt+Y");
        awaitend(0);
        if (pointer().wasused())
            giveup("The mouse was used.");
    }
};

const QString deviceName = QStringLiteral("Akai APC Mini");
const QString wrongDeviceName = QStringLiteral("Novation Launchpad");

// The places of entries in the context menu of a cell, and in the submenu of a colour, where "default" comes
// first, then the device's palette of black, green, red and yellow.
constexpr int offColor = 2;
constexpr int onColor = 3;
constexpr int blink = 4;
constexpr int switchOfEmpty = 1;
constexpr int green = 3;
constexpr int red = 4;

QByteArray pad(int number, const QByteArray& first, const QByteArray& second)
{
    const auto chain = [&](const QByteArray& verb, const QByteArray& a, const QByteArray& b) {
        return "var &apos;dmxbank&apos; 0 ? " + verb + " &apos;" + a +
               "&apos; : var &apos;dmxbank&apos; 1 ? " + verb + " &apos;" + b + "&apos;";
    };
    const auto color = [](const QByteArray& name) -> QByteArray {
        if (name == "Strobe")
            return "#ff0000";
        return name == "Slow Fade" ? "#4060c0" : name == "Tunnel and Fog" ? "#00c8c8" : "#000000";
    };
    const auto action = [](const QByteArray& name) {
        return name.isEmpty() ? QByteArray("nothing") : "os2l_button &apos;" + name + "&apos;";
    };
    const QByteArray tag = "pad" + QByteArray::number(number);
    return "\t<" + tag + " name=\"`" + chain("get_text", first, second) + "`\" color=\"" +
           chain("color", first.isEmpty() ? "transparent" : color(first),
                 second.isEmpty() ? "transparent" : color(second)) +
           "\">var &apos;dmxbank&apos; 0 ? " + action(first) + " : var &apos;dmxbank&apos; 1 ? " +
           action(second) + "</" + tag + ">\n";
}

} // namespace

/// The whole job without a single event of the mouse.
class KeyboardStory : public QObject
{
    Q_OBJECT

private slots:
    void pads_are_filled_named_undone_exported_saved_and_loaded();
    void controller_is_coloured_exported_saved_and_loaded();

private:
    static void workoncells(KeyboardUser& user, const QByteArray& expected);
    static void repeatcells(KeyboardUser& user, const QByteArray& expected);
};

void KeyboardStory::pads_are_filled_named_undone_exported_saved_and_loaded()
{
    Stories::tell([] {
        KeyboardUser user;
        user.open();
        user.loadshowbykeys("Demo Show");
        // From the button to the list; the first three Live Buttons go on the first bank.
        user.keys("Tab", 2);
        user.keys("Return", 3);
        // To the bank and its name; back to the list, whose next two go on the second bank.
        user.keys("Tab", 4);
        user.keys("Down");
        user.keys("Tab");
        user.keys("Ctrl+A");
        user.keyboard().type("SLOW");
        user.keys("Shift+Tab", 5);
        user.keys("Return", 2);
        // The last of them goes, the one before too, and comes back.
        user.keys("Ctrl+Z", 2);
        user.keys("Ctrl+Shift+Z");
        user.exportbykeys();
        QByteArray page = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<page name=\"OS2L DMX\">\n" +
                          pad(1, "Strobe", "Tunnel and Fog") + pad(2, "Blackout", "") +
                          pad(3, "Slow Fade", "");
        for (int number = 4; number <= 8; ++number)
            page += pad(number, "", "");
        page += "\t<param1 name=\"`var &apos;dmxbank&apos; 0 ? get_text &apos;BANK 1&apos; : var "
                "&apos;dmxbank&apos; "
                "1 ? get_text &apos;SLOW&apos;`\">param_bigger 0 ? cycle &apos;dmxbank&apos; 2 : cycle "
                "&apos;dmxbank&apos; -2</param1>\n</page>\n";
        user.expectfile(user.home().page("OS2L DMX"), page);
        user.expectonstage(user.home().page("OS2L DMX"), "keyboard-page.json");
        user.picture("1-exported");

        const QString project = user.home().project("Keys");
        user.savebykeys(project);

        // The work is replaced by a load; what is saved again is the same.
        user.focusmain();
        user.keys("Ctrl+Z");
        user.loadprojectbykeys(project, Earlier::Replaced);
        user.saveagainbykeys(project);
        user.picture("2-loaded");
        user.leave();
    });
}

void KeyboardStory::controller_is_coloured_exported_saved_and_loaded()
{
    Stories::tell([] {
        KeyboardUser user;
        const QByteArray expected = Stories::goldenmapper("keyboard-mapper.xml", user.home());
        workoncells(user, expected);
        repeatcells(user, expected);
    });
}

/// Fills cells of the controller, exports them as \a expected and saves them.
void KeyboardStory::workoncells(KeyboardUser& user, const QByteArray& expected)
{
    user.open();
    user.loadshowbykeys("Demo Show");
    // The wrong device first: so the right one is another than before, wherever it is listed.
    user.gotodevices();
    user.choosedevicebykeys(wrongDeviceName);
    user.keys("Shift+Tab", 5);
    user.choosedevicebykeys(deviceName);
    // From the grid to the list, whose first two Live Buttons go on the first pads.
    user.keys("Shift+Tab", 7);
    user.keys("Return", 2);
    // The factory's mapping is the second one.
    user.keys("Tab", 3);
    user.keys("Down");
    // In the grid the second pad is current. The first: green while its Live Button is off, red while it is
    // on, and blinking; the pad below becomes the switch.
    user.keys("Tab", 4);
    user.keys("Left");
    user.choosefrommenu("Menu", offColor, green);
    user.choosefrommenu("Menu", onColor, red);
    user.choosefrommenu("Shift+F10", blink);
    user.keys("Down");
    user.choosefrommenu("Menu", switchOfEmpty);
    user.exportbykeys();
    user.picture("1-exported");
    user.expectfile(user.home().mapper(deviceName, "OS2L DMX"), expected);
    user.savebykeys(user.home().project("Keys"));
    user.leave();
}

/// A new start of the program loads what was saved; exported and saved again it is the same.
void KeyboardStory::repeatcells(KeyboardUser& user, const QByteArray& expected)
{
    user.open();
    // With the wrong device the load has one to choose.
    user.gotodevices();
    user.choosedevicebykeys(wrongDeviceName);
    const QString project = user.home().project("Keys");
    user.loadprojectbykeys(project);
    user.awaittitle("Lumipad - Demo Show");
    // From the grid to the mappings: which one was chosen is not part of a project.
    user.keys("Shift+Tab", 4);
    user.keys("Down");
    const QString mapper = user.home().mapper(deviceName, "OS2L DMX");
    Stories::spoil(mapper);
    user.exportbykeys(Earlier::Replaced);
    user.picture("2-loaded");
    user.expectfile(mapper, expected);
    user.saveagainbykeys(project);
    user.leave();
}

QTEST_GUILESS_MAIN(KeyboardStory)
#include "tst_keyboard.moc"
