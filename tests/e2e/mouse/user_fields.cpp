// The user at line edits, combo boxes and the choice of the output.

#include "devices.h"
#include "look.h"
#include "user.h"

namespace {

QList<Record> builtindevices()
{
    return controller::readdefaultmappers(QStringLiteral(LUMIPAD_DEVICES)).devices;
}

} // namespace

void User::filledit(const QString& edit, const QString& text)
{
    focusmain();
    click(edit);
    const QPoint frame = rect(edit).topLeft() + QPoint(20, 0);
    await([&] { return color(frame) == Look::editFrameWithKeyboard; },
          QStringLiteral("%1 did not take the keyboard.").arg(edit));
    keyboard().key(QStringLiteral("Ctrl+A"));
    keyboard().type(text);
}

void User::chooseitem(const QString& combo, int number, int count)
{
    click(combo);
    const ScreenWindow popup = awaitwindow(QStringLiteral("The list of %1").arg(combo));
    const QRect& list = popup.geometry;
    const int middle = list.top() + list.height() * (2 * number - 1) / (2 * count);
    await(
        [&] {
            // A popup lets clicks through only once it has seen the mouse move.
            hover({list.left() + list.width() / 4, middle});
            return color({list.left() + 1, middle}) == Look::comboEntryUnderMouse;
        },
        QStringLiteral("Entry %1 of %2 did not light up under the mouse.").arg(number).arg(combo));
    pointer().click({list.left() + list.width() / 4, middle});
    awaitgone(popup, QStringLiteral("The list of %1").arg(combo));
    settle();
}

int User::devicenumber(const QString& name)
{
    const auto devices = builtindevices();
    for (int i = 0; i < devices.size(); ++i) {
        if (devices.at(i).value(Key::name()) == name)
            return i + 1;
    }
    giveup(QStringLiteral("There is no controller %1.").arg(name));
}

void User::choosedevice(const QString& name)
{
    const int count = static_cast<int>(builtindevices().size());
    chooseitem(QStringLiteral("devicescombo"), devicenumber(name), count);
}

void User::pickbykeys(const QString& combo, int number)
{
    const ScreenWindow popup = awaitwindow(QStringLiteral("The list of %1").arg(combo));
    keyboard().key(QStringLiteral("Home"));
    for (int i = 1; i < number; ++i)
        keyboard().key(QStringLiteral("Down"));
    keyboard().key(QStringLiteral("Return"));
    awaitgone(popup, QStringLiteral("The list of %1").arg(combo));
}

void User::choosebykeys(const QString& combo, int number)
{
    click(combo);
    pickbykeys(combo, number);
    settle();
}

void User::switchto(Output output)
{
    click(output == Output::Pads ? QStringLiteral("radio_outputpage") : QStringLiteral("radio_outputmidi"));
    idle();
    awaitoutput(output);
    settle();
}

void User::awaitoutput(Output output)
{
    await([&] { return hasoutput(output); },
          QStringLiteral("The window did not show the side of the %1.")
              .arg(output == Output::Pads ? QStringLiteral("pads page") : QStringLiteral("MIDI mapping")));
}

/// Whether the window is as wide as this output makes it. The ways to the MIDI side differ by one pixel.
bool User::hasoutput(Output output) const
{
    constexpr int padsWidth = 650;
    const int width = mainwindow().geometry.width();
    const int whole = form().rect(QStringLiteral("MainWindow")).width();
    return output == Output::Pads ? width == padsWidth : (width == whole || width == whole + 1);
}
