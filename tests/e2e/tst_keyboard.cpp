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

    void loadshowbykeys(const QString& name)
    {
        keys("Ctrl+O");
        typefile("Select a Show", home().showfolder(name));
        awaitalone("The folder dialog");
        focusmain();
        awaittitle("Lumipad - " + name);
    }
};

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
    void controller_gets_colours_blink_and_switch();
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
        user.keys("Ctrl+Shift+E");
        user.answer("Return");
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
        user.focusmain();
        user.keys("Ctrl+S");
        user.typefile("Save your Lumipad Project", project);
        user.answer("Return");
        const QByteArray saved = contents(project);

        // The work is replaced by a load; what is saved again is the same.
        user.focusmain();
        user.keys("Ctrl+Z");
        user.keys("Ctrl+Shift+O");
        user.answer("Alt+Y");
        user.typefile("Select a Lumipad Project", project);
        user.awaitalone("The dialog");
        user.focusmain();
        user.keys("Ctrl+S");
        user.typefile("Save your Lumipad Project", project);
        user.answer("Alt+Y");
        user.answer("Return");
        user.expectfile(project, saved);
        user.picture("2-loaded");

        user.focusmain();
        user.keys("Ctrl+Q");
        user.answer("Alt+Y");
        user.awaitend(0);
    });
}

void KeyboardStory::controller_gets_colours_blink_and_switch()
{
    Stories::tell([] {
        KeyboardUser user;
        user.open();
        user.loadshowbykeys("Demo Show");
        // The other output is the next choice of the radio buttons.
        user.keys("Tab", 3);
        user.keys("Right");
        // The devices come behind it, the Live Buttons ahead of it.
        const QString device = "Akai APC Mini";
        user.keys("Tab");
        user.keys("Down", user.devicenumber(device) - 1);
        user.keys("Shift+Tab", 2);
        user.keys("Return", 2);
        // The factory's mapping is the second one.
        user.keys("Tab", 3);
        user.keys("Down");
        user.keys("Tab", 4);
        // The second pad is current. The menu of the first: its colour while the Live Button is on, red, and
        // blinking.
        user.keys("Left");
        user.picture("1-first-pad");
        user.keys("Menu");
        user.awaitmenus(1);
        user.keys("Down", 3);
        user.keys("Right");
        user.awaitmenus(2);
        user.keys("Down", 3);
        user.keys("Return");
        user.awaitmenusgone();
        user.keys("Shift+F10");
        user.awaitmenus(1);
        user.keys("Down", 4);
        user.keys("Return");
        user.awaitmenusgone();
        // The pad below becomes the switch.
        user.keys("Down");
        user.keys("Menu");
        user.awaitmenus(1);
        user.keys("Down");
        user.keys("Return");
        user.awaitmenusgone();
        user.keys("Ctrl+Shift+E");
        user.answer("Return");
        user.picture("2-exported");
        user.expectonstage(user.home().mapper("Akai APC Mini", "OS2L DMX"), "keyboard-mapping.json");
        user.focusmain();
        user.keys("Ctrl+Q");
        user.answer("Alt+Y");
        user.awaitend(0);
    });
}

QTEST_GUILESS_MAIN(KeyboardStory)
#include "tst_keyboard.moc"
