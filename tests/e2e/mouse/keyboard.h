#pragma once

#include "xconnection.h"

#include <QHash>
#include <QString>
#include <QVector>

/// The keyboard of a display. Keys go to the window that has the keyboard. Names of keys are those of
/// QKeySequence, in English: "Return", "Tab", "Esc", "Down", "PgUp", "F1", "Menu", "A", "1"; and "Ctrl",
/// "Shift", "Alt" and "Meta". An unknown name, or a key that the keyboard has no room for, throws `Trouble`.
class Keyboard
{
public:
    /// Reads the keyboard's layout and switches the repeating of held keys off.
    explicit Keyboard(XConnection* display);

    /// Types \a text, any characters; a line feed is Return and a tabulator Tab.
    void type(const QString& text);
    /// Presses a key with those before it held, such as "Down", "Ctrl+A" or "Ctrl+Shift+E", and releases all.
    void key(const QString& keys);
    /// Presses one key and keeps it down until `release`.
    void press(const QString& name);
    void release(const QString& name);

private:
    using Symbol = unsigned long;
    /// How the keyboard gives a symbol.
    struct Stroke
    {
        unsigned code = 0;
        bool shift = false;
    };

    Stroke strokeof(Symbol symbol);
    unsigned codeof(const QString& name);
    void send(unsigned code, bool down);

    XConnection* m_display;
    QHash<Symbol, Stroke> m_strokes;
    QVector<unsigned> m_spare; ///< keys that give nothing yet
};
