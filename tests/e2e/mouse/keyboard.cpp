#include "keyboard.h"

#include "trouble.h"

#include <QStringList>

#include <utility>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace {

/// The symbol that X has for a character.
KeySym charactersymbol(uint character)
{
    if (character == '\n')
        return XK_Return;
    if (character == '\t')
        return XK_Tab;
    // Latin-1 stands for itself; all other characters have one range of symbols.
    const bool latin1 = (character >= 0x20 && character <= 0x7e) || (character >= 0xa0 && character <= 0xff);
    return latin1 ? character : 0x01000000 + character;
}

/// The symbol of a named key; NoSymbol when there is none.
KeySym namedsymbol(const QString& name)
{
    static const QHash<QString, KeySym> differing = {
        {"Ctrl", XK_Control_L}, {"Shift", XK_Shift_L}, {"Alt", XK_Alt_L},      {"Meta", XK_Super_L},
        {"Esc", XK_Escape},     {"Del", XK_Delete},    {"Ins", XK_Insert},     {"PgUp", XK_Page_Up},
        {"PgDown", XK_Next},    {"Space", XK_space},   {"Enter", XK_KP_Enter}, {"Backspace", XK_BackSpace},
    };
    // The key of a letter gives the small one.
    if (name.size() == 1)
        return charactersymbol(name.at(0).toLower().unicode());
    return differing.contains(name) ? differing.value(name) : XStringToKeysym(name.toLatin1().constData());
}

} // namespace

Keyboard::Keyboard(XConnection* display) : m_display(display)
{
    // A slow machine must not make one key many.
    XAutoRepeatOff(m_display);
    int first = 0;
    int last = 0;
    XDisplayKeycodes(m_display, &first, &last);
    for (int code = first; code <= last; ++code) {
        const KeySym plain = XkbKeycodeToKeysym(m_display, static_cast<KeyCode>(code), 0, 0);
        const KeySym shifted = XkbKeycodeToKeysym(m_display, static_cast<KeyCode>(code), 0, 1);
        const auto key = static_cast<unsigned>(code);
        if (plain == NoSymbol && shifted == NoSymbol)
            m_spare.append(key);
        if (plain != NoSymbol && !m_strokes.contains(plain))
            m_strokes.insert(plain, {key, false});
        if (shifted != NoSymbol && !m_strokes.contains(shifted))
            m_strokes.insert(shifted, {key, true});
    }
}

Keyboard::Stroke Keyboard::strokeof(Symbol symbol)
{
    const auto known = m_strokes.constFind(symbol);
    if (known != m_strokes.constEnd())
        return *known;
    // A spare key gets the symbol and keeps it: whoever reads the key late must still find it there.
    if (m_spare.isEmpty())
        throw Trouble(
            QStringLiteral("The keyboard has no spare key left for the symbol 0x%1.").arg(symbol, 0, 16));
    const Stroke stroke{m_spare.takeLast(), false};
    // The same with Shift.
    Symbol symbols[] = {symbol, symbol};
    XChangeKeyboardMapping(m_display, static_cast<int>(stroke.code), 2, symbols, 1);
    XSync(m_display, False);
    m_strokes.insert(symbol, stroke);
    return stroke;
}

unsigned Keyboard::codeof(const QString& name)
{
    const KeySym symbol = namedsymbol(name);
    if (symbol == NoSymbol)
        throw Trouble(QStringLiteral("There is no key named \"%1\".").arg(name));
    return strokeof(symbol).code;
}

void Keyboard::send(unsigned code, bool down)
{
    XTestFakeKeyEvent(m_display, code, down ? True : False, CurrentTime);
    XSync(m_display, False);
}

void Keyboard::type(const QString& text)
{
    const unsigned shift = codeof(QStringLiteral("Shift"));
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        const Stroke stroke = strokeof(charactersymbol(character));
        if (stroke.shift)
            send(shift, true);
        send(stroke.code, true);
        send(stroke.code, false);
        if (stroke.shift)
            send(shift, false);
    }
}

void Keyboard::key(const QString& keys)
{
    QStringList names = keys.split(QLatin1Char('+'));
    for (const QString& name : std::as_const(names))
        press(name);
    while (!names.isEmpty())
        release(names.takeLast());
}

void Keyboard::press(const QString& name) { send(codeof(name), true); }

void Keyboard::release(const QString& name) { send(codeof(name), false); }
